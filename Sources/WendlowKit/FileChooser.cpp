#include "FileChooser.h"

#include "Say.h"

#include <QCoroDBusPendingCall>
#include <QCoroSignal>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QObject>
#include <QUrl>
#include <QUuid>
#include <QVariantMap>

#include <optional>
#include <utility>

namespace wendlow::FileChooser {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portal = QStringLiteral("/org/freedesktop/portal/desktop");
const QString chooser = QStringLiteral("org.freedesktop.portal.FileChooser");
const QString requests = QStringLiteral("org.freedesktop.portal.Request");
constexpr int patience = 5000; ///< milliseconds until the dialog is on its way

std::string noDialog() {
    return say("This desktop has no dialog to choose an app with.");
}

} // namespace

/// Hears what a person has answered to one dialog.
class Response final : public QObject {
    Q_OBJECT

public:
    std::optional<QString> path; ///< empty where the dialog was left

public Q_SLOTS:
    void answered(uint status, const QVariantMap& results) {
        const QStringList paths = results.value(QStringLiteral("uris")).toStringList();
        const bool chosen = status == 0 && !paths.isEmpty();
        path = chosen ? QUrl(paths.first()).toLocalFile() : QString();
        Q_EMIT given();
    }

Q_SIGNALS:
    void given();
};

QCoro::Task<Answer> choose(QDBusConnection bus, Question question) {
    if (!bus.isConnected())
        co_return std::unexpected(noDialog());
    const QString token = QStringLiteral("wendlow_") + QUuid::createUuid().toString(QUuid::Id128);
    const QString sender = bus.baseService().mid(1).replace(u'.', u'_');
    // Listened to before the dialog is asked for: it may be answered before its name comes back.
    Response response;
    bus.connect(service, portal + QStringLiteral("/request/%1/%2").arg(sender, token), requests,
                QStringLiteral("Response"), &response, SLOT(answered(uint, QVariantMap)));
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, portal, chooser, QStringLiteral("OpenFile"));
    // An application is a folder here.
    const QVariantMap options{
        {QStringLiteral("handle_token"), token},
        {QStringLiteral("directory"), true},
        {QStringLiteral("current_folder"), question.folder.toUtf8().append('\0')}};
    call << QString() << question.title << options;
    const QDBusPendingCall pending = bus.asyncCall(call, patience);
    const QDBusMessage reply = co_await pending;
    if (reply.type() != QDBusMessage::ReplyMessage)
        co_return std::unexpected(noDialog());
    if (!response.path)
        co_await qCoro(&response, &Response::given);
    co_return *response.path;
}

} // namespace wendlow::FileChooser

#include "FileChooser.moc"
