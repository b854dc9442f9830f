// wendlow-practice-gateway: answers in place of the product's daemon, from a database of its own.

#include "PracticeGateway.h"
#include "Service/GatewayService.h"
#include "Service/Options.h"
#include "SessionBusAddress.h"
#include "TerminationSignals.h"

#include <cstdio>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QTimer>
#include <fmt/format.h>

namespace {

using namespace wendlow;

enum ExitStatus { succeeded = 0, couldNotStart = 1, wrongUsage = 2 };

ExitStatus complain(ExitStatus status, std::string_view sentence) {
    fmt::print(stderr, "wendlow-practice-gateway: {}\n", sentence);
    return status;
}

} // namespace

int main(int count, char** words) {
    QCoreApplication application(count, words);
    const auto options = Options::parse(QCoreApplication::arguments());
    if (!options)
        return complain(wrongUsage, options.error());
    if (options->help) {
        fmt::print("{}", *options->help);
        return succeeded;
    }

    const TerminationSignals signals;
    const auto bus = QDBusConnection::connectToBus(sessionBusAddress(), uniqueConnectionName());
    GatewayService* face = nullptr;
    // By way of the application, which outlives the face: nothing arrives there any more once its
    // loop has ended.
    const auto push = [&](const GatewayEvent& event) {
        QMetaObject::invokeMethod(qApp, [&face, event] { face->push(event); });
    };
    const auto gateway = PracticeGateway::open(options->database,
                                               {.push = push, .shutDown = &QCoreApplication::quit});
    if (!gateway)
        return complain(couldNotStart, gateway.error());
    if (options->fill)
        if (const auto filled = (*gateway)->fill(*options->fill); !filled)
            return complain(couldNotStart, filled.error());
    (*gateway)->answerRules(options->rules);
    (*gateway)->answerDays(options->days);
    (*gateway)->meddleWithLines(options->lines);
    (*gateway)->answerMods(options->mods);
    (*gateway)->answerGrants(options->grants);
    GatewayService service(*gateway, bus, options->misbehaviour);
    face = &service;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&] { (*gateway)->lookAtFront(); });
    clock.start(std::chrono::seconds(1));
    QTimer passing;
    QObject::connect(&passing, &QTimer::timeout, [&] { (*gateway)->passTime(); });
    if (options->live.count() > 0)
        passing.start(options->live);
    QObject::connect(&service, &GatewayService::lost, qApp, &QCoreApplication::quit);
    if (const auto started = service.start(options->name); !started)
        return complain(couldNotStart, started.error());
    fmt::print("ready\n");
    std::fflush(stdout);
    return QCoreApplication::exec();
}
