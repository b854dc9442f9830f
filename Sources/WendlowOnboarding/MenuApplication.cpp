#include "MenuApplication.h"

#include "SessionBusAddress.h"
#include "TextFile.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <QThreadPool>

#include <fmt/format.h>

namespace wendlow::MenuApplication {

namespace {

bool startByEntry(const std::string& id) {
    const QString file = QStandardPaths::locate(QStandardPaths::ApplicationsLocation,
                                                QString::fromStdString(id + ".desktop"));
    const auto entry =
        file.isEmpty() ? std::nullopt : TextFile::read(std::filesystem::path(file.toStdString()));
    const auto command = entry ? commandIn(*entry) : std::nullopt;
    if (!command)
        return false;
    QStringList arguments;
    for (std::size_t at = 1; at < command->size(); ++at)
        arguments.append(QString::fromStdString((*command)[at]));
    return QProcess::startDetached(QString::fromStdString(command->front()), arguments);
}

/// Waits, so not on the thread that asks: a bus that is there may say nothing.
void startByBus(const std::string& id, const std::function<void(const std::string&)>& log) {
    constexpr int patience = 5000; // milliseconds
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("StartServiceByName"));
    call << QString::fromStdString(id) << quint32(0);
    const QString name = uniqueConnectionName();
    const QDBusMessage reply =
        QDBusConnection::connectToBus(sessionBusAddress(), name).call(call, QDBus::Block, patience);
    QDBusConnection::disconnectFromBus(name);
    if (reply.type() != QDBusMessage::ReplyMessage)
        log(fmt::format("wake: no application for {}; nothing to open", id));
}

} // namespace

std::optional<std::vector<std::string>> commandIn(std::string_view entry) {
    bool inGroup = false;
    for (const QString& line : QString::fromUtf8(entry).split(u'\n')) {
        const QString trimmed = line.trimmed();
        if (trimmed.startsWith(u'['))
            inGroup = trimmed == QStringLiteral("[Desktop Entry]");
        if (!inGroup || !trimmed.startsWith(QStringLiteral("Exec=")))
            continue;
        std::vector<std::string> command;
        for (QString word :
             QProcess::splitCommand(trimmed.sliced(QStringLiteral("Exec=").size()))) {
            constexpr qsizetype place = 2; // "%u" and the like
            if (word.size() == place && word.startsWith(u'%') && word != QStringLiteral("%%"))
                continue;
            command.push_back(
                word.replace(QStringLiteral("%%"), QStringLiteral("%")).toStdString());
        }
        return command.empty() ? std::nullopt : std::optional(std::move(command));
    }
    return std::nullopt;
}

void open(const std::string& id, const std::function<void(const std::string& line)>& log) {
    if (!startByEntry(id))
        QThreadPool::globalInstance()->start([id, log] { startByBus(id, log); });
}

} // namespace wendlow::MenuApplication
