#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace wendlow {

/// Whether it was a key or the pointer that a person last used, in any window: what takes the focus
/// shows its ring after a key. Belongs to the UI thread.
class LastInput : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool byKey READ isByKey NOTIFY byKeyChanged FINAL)
    /// For `forceActiveFocus`, so that a ring is shown where it belongs.
    Q_PROPERTY(int reason READ reason NOTIFY byKeyChanged FINAL)

public:
    explicit LastInput(QObject* parent = nullptr);

    bool isByKey() const { return m_byKey; }
    int reason() const { return m_byKey ? Qt::TabFocusReason : Qt::MouseFocusReason; }

Q_SIGNALS:
    void byKeyChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_byKey = true;
};

} // namespace wendlow
