#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

namespace wendlow {

/// A switch of which the daemon has the last word: it shows what was read back, never what was
/// asked for. UI thread.
class DaemonSwitch final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The model of a pane has its switches.")

    /// The daemon has said how it stands; before, it stands neither way.
    Q_PROPERTY(bool known READ isKnown NOTIFY changed)
    Q_PROPERTY(bool on READ isOn NOTIFY changed)
    /// A write is under way: it takes no second one.
    Q_PROPERTY(bool writing READ isWriting NOTIFY changed)
    /// Why the last write was not done; stays until the next one. Empty: it was.
    Q_PROPERTY(QString refusal READ refusal NOTIFY changed)

public:
    /// Of one time between two writes.
    using Age = int;

    explicit DaemonSwitch(QObject* parent) : QObject(parent) {}

    bool isKnown() const { return m_known; }
    bool isOn() const { return m_on; }
    bool isWriting() const { return m_writing; }
    QString refusal() const { return m_refusal; }

    /// To be kept with a question about its state, for `take`.
    Age age() const { return m_age; }
    /// The daemon's word on a question of that age. One that was asked before a write began or
    /// ended no longer tells how it stands, and is dropped.
    void take(bool on, Age asked);

    void beginWrite();
    /// The daemon has answered the write. It is under way until `endWrite` all the same, so that
    /// its new state can be read back first.
    void answerWrite(const QString& refusal);
    void endWrite();

Q_SIGNALS:
    void changed();

private:
    bool m_known = false;
    bool m_on = false;
    bool m_writing = false;
    QString m_refusal;
    Age m_age = 0;
};

} // namespace wendlow
