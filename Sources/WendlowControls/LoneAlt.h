#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace wendlow {

/// Tells when Alt was pressed in a window and let go with nothing done in between. It watches every
/// key of the application: one that a shortcut or an item has taken never comes to the item that
/// looks for this. Belongs to the UI thread.
class LoneAlt : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// Anything in the window.
    Q_PROPERTY(QQuickItem* within READ within WRITE setWithin NOTIFY withinChanged REQUIRED FINAL)
    /// Alt is held, and nothing else has been done so far.
    Q_PROPERTY(bool held READ isHeld NOTIFY heldChanged FINAL)

public:
    explicit LoneAlt(QObject* parent = nullptr);

    QQuickItem* within() const { return m_within; }
    void setWithin(QQuickItem* within);
    bool isHeld() const { return m_held; }

Q_SIGNALS:
    void withinChanged();
    void heldChanged();
    void tapped();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setHeld(bool held);

    QPointer<QQuickItem> m_within;
    bool m_held = false;
};

} // namespace wendlow
