#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QQmlError>
#include <QStringList>

#include <utility>

namespace wendlow::testing {

/// What an engine finds amiss in the QML while it goes on: a binding that goes in circles, a value
/// that is not there.
class QmlWarnings {
public:
    void listen(QQmlEngine& engine) {
        QObject::connect(&engine, &QQmlEngine::warnings, &m_ear,
                         [this](const QList<QQmlError>& warnings) {
                             for (const QQmlError& warning : warnings)
                                 m_words.append(warning.toString());
                         });
    }
    /// Since it was last asked.
    QStringList taken() { return std::exchange(m_words, {}); }

private:
    QStringList m_words;
    QObject m_ear;
};

} // namespace wendlow::testing
