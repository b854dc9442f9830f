#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace wendlow {

/// Tells when the keys of a window go nowhere: what had the focus has gone from sight, or only
/// something around it is left. Whoever knows where they should go then sends them there. Keys that
/// go to something outside of `content`, such as a menu, are nobody's concern here. Belongs to the
/// UI thread.
class FocusKeeper : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        QQuickItem* content READ content WRITE setContent NOTIFY contentChanged REQUIRED FINAL)

public:
    explicit FocusKeeper(QObject* parent = nullptr);

    QQuickItem* content() const { return m_content; }
    void setContent(QQuickItem* content);

    /// Whether a person sees the focus at this item: it is no mere scope around others.
    static bool shows(const QQuickItem& item);

Q_SIGNALS:
    void contentChanged();
    /// Told when control is back in the event loop and the focus is still astray.
    void lost();

private:
    void followWindow();
    void followFocus();
    void judge();

    QPointer<QQuickItem> m_content;
    QPointer<QQuickWindow> m_window;
    QPointer<QQuickItem> m_focused;
    QTimer m_soon; ///< a change of focus comes in steps; only where it ends counts
};

} // namespace wendlow
