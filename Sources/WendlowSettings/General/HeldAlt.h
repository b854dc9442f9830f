#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QtQmlIntegration/qqmlintegration.h>

namespace wendlow {

/// Tells whether Alt is held while its window is in front, whatever else is pressed meanwhile: what
/// shows only then can be clicked. It watches every key of the application, for one that a menu has
/// taken never comes to the item that looks for this. UI thread.
class HeldAlt : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// Anything in the window.
    Q_PROPERTY(QQuickItem* within READ within WRITE setWithin NOTIFY withinChanged REQUIRED FINAL)
    Q_PROPERTY(bool held READ isHeld NOTIFY heldChanged FINAL)

public:
    explicit HeldAlt(QObject* parent = nullptr);

    QQuickItem* within() const { return m_within; }
    void setWithin(QQuickItem* within);
    bool isHeld() const { return m_held; }

Q_SIGNALS:
    void withinChanged();
    void heldChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setHeld(bool held);

    QPointer<QQuickItem> m_within;
    bool m_held = false;
};

} // namespace wendlow
