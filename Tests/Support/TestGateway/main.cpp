// wendlow-test-gateway: the practice gateway's bus face, with its options, over a gateway that is
// always well; and beside it, what only tests and measures ask.

#include "Service/GatewayService.h"
#include "Service/Options.h"
#include "SessionBusAddress.h"

#include <QCoreApplication>

#include <iostream>

namespace wendlow {
namespace {

class WellGateway final : public Gateway {
public:
    QCoro::Task<GatewayResponse> handle(GatewayRequest /*request*/) override {
        co_return AnswerCase::Text{"healthy"};
    }
};

} // namespace

class TestFace : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "works.fenmoor.wendlow.Test")

public:
    explicit TestFace(GatewayService& service) {
        service.watch([this](char letter) { m_seen += QLatin1Char(letter); });
    }

public Q_SLOTS:
    /// The bare round trip that the client is measured against.
    Q_SCRIPTABLE QVariantMap Echo(const QVariantMap& message) { return message; }
    /// A letter for each message that the gateway took so far.
    Q_SCRIPTABLE QString Seen() const { return m_seen; }

private:
    QString m_seen;
};

} // namespace wendlow

int main(int count, char** words) {
    using namespace wendlow;
    const QCoreApplication application(count, words);
    const auto options = Options::parse(QCoreApplication::arguments());
    if (!options)
        return 2;
    auto bus = QDBusConnection::connectToBus(sessionBusAddress(), uniqueConnectionName());
    GatewayService service(std::make_shared<WellGateway>(), bus, options->misbehaviour);
    TestFace face(service);
    if (!bus.registerObject(QStringLiteral("/works/fenmoor/wendlow/test"), &face,
                            QDBusConnection::ExportScriptableSlots) ||
        !service.start(options->name))
        return 1;
    std::cout << "ready" << std::endl;
    return QCoreApplication::exec();
}

#include "main.moc"
