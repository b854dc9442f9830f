#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

class QKeyEvent;

namespace wendlow {

/// The Alt key of a window. It watches every key of the application: one that a shortcut, a menu or
/// an item has taken never comes to the item that looks for this. Belongs to the UI thread.
class AltKey : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// Anything in the window.
    Q_PROPERTY(QQuickItem* within READ within WRITE setWithin NOTIFY withinChanged REQUIRED FINAL)
    /// Alt is held while the window is in front, whatever else is done meanwhile: what shows only
    /// then can be clicked.
    Q_PROPERTY(bool held READ isHeld NOTIFY heldChanged FINAL)
    /// Alt is held, and nothing else has been done so far.
    Q_PROPERTY(bool lone READ isLone NOTIFY loneChanged FINAL)

public:
    explicit AltKey(QObject* parent = nullptr);

    QQuickItem* within() const { return m_within; }
    void setWithin(QQuickItem* within);
    bool isHeld() const { return m_held; }
    bool isLone() const { return m_lone; }

Q_SIGNALS:
    void withinChanged();
    void heldChanged();
    void loneChanged();
    /// Let go with nothing done in between.
    void tapped();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setHeld(bool held);
    void setLone(bool lone);
    void look(const QKeyEvent& key, bool isHere);

    QPointer<QQuickItem> m_within;
    bool m_held = false;
    bool m_lone = false;
};

} // namespace wendlow
