// wendlow-practice-gateway: answers in place of the product's daemon, from a database of its own.

#include "ClientInstance.h"
#include "HomeFolder.h"
#include "PracticeGateway.h"
#include "Service/GatewayService.h"
#include "Service/Options.h"
#include "SessionBusAddress.h"
#include "TerminationSignals.h"

#include <cstdio>
#include <filesystem>
#include <span>
#include <vector>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QTimer>
#include <fmt/format.h>
#include <unistd.h>

namespace {

using namespace wendlow;

enum ExitStatus { succeeded = 0, couldNotStart = 1, wrongUsage = 2 };

/// What a run ends in.
struct End {
    int status = succeeded;
    bool startsAgain = false;
};

End complain(ExitStatus status, std::string_view sentence) {
    fmt::print(stderr, "wendlow-practice-gateway: {}\n", sentence);
    return {.status = status};
}

End serve(const Options& options) {
    const TerminationSignals signals;
    const auto bus = QDBusConnection::connectToBus(sessionBusAddress(), uniqueConnectionName());
    GatewayService* face = nullptr;
    // By way of the application, which outlives the face: nothing arrives there any more once its
    // loop has ended.
    const auto push = [&](const GatewayEvent& event) {
        QMetaObject::invokeMethod(qApp, [&face, event] { face->push(event); });
    };
    bool startsAgain = false;
    const auto restart = [&startsAgain] {
        startsAgain = true;
        QCoreApplication::quit();
    };
    const auto gateway = PracticeGateway::open(
        options.database, {.push = push, .shutDown = &QCoreApplication::quit, .restart = restart});
    if (!gateway)
        return complain(couldNotStart, gateway.error());
    if (options.fill)
        if (const auto filled = (*gateway)->fill(*options.fill); !filled)
            return complain(couldNotStart, filled.error());
    (*gateway)->answerRules(options.rules);
    (*gateway)->answerDays(options.days);
    (*gateway)->meddleWithLines(options.lines);
    (*gateway)->answerMods(options.mods);
    (*gateway)->answerGrants(options.grants);
    if (options.recovery)
        (*gateway)->protect(*options.recovery);
    (*gateway)->keepTraceLogAt(std::filesystem::path(homeFolder()) / "Library" / "Logs" /
                               ClientInstance::traceLogName);
    GatewayService service(std::make_shared<SteeredGateway>(*gateway, options.steered), bus,
                           options.misbehaviour);
    face = &service;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&] { (*gateway)->lookAtFront(); });
    clock.start(std::chrono::seconds(1));
    QTimer passing;
    QObject::connect(&passing, &QTimer::timeout, [&] { (*gateway)->passTime(); });
    if (options.live.count() > 0)
        passing.start(options.live);
    QObject::connect(&service, &GatewayService::lost, qApp, &QCoreApplication::quit);
    if (const auto started = service.start(options.name); !started)
        return complain(couldNotStart, started.error());
    fmt::print("ready\n");
    std::fflush(stdout);
    const int status = QCoreApplication::exec();
    // The answer that starts it again is on its way before the bus answers this, and the name is
    // free.
    if (startsAgain)
        bus.interface()->unregisterService(QString::fromStdString(options.name));
    return {.status = status, .startsAgain = startsAgain};
}

/// The same program again in this process, with the words that it was started with; but for those
/// that took its key away. Does not come back.
void startAgain(std::span<char*> words) {
    constexpr std::string_view recovery = "--recovery";
    std::vector<char*> again;
    for (std::size_t at = 0; at < words.size(); ++at) {
        const std::string_view word = words[at];
        if (word == recovery)
            ++at;
        else if (!word.starts_with(std::string(recovery) + '='))
            again.push_back(words[at]);
    }
    again.push_back(nullptr);
    ::execv("/proc/self/exe", again.data());
}

} // namespace

int main(int count, char** words) {
    QCoreApplication application(count, words);
    const auto options = Options::parse(QCoreApplication::arguments());
    if (!options)
        return complain(wrongUsage, options.error()).status;
    if (options->help) {
        fmt::print("{}", *options->help);
        return succeeded;
    }
    const End end = serve(*options);
    if (end.startsAgain)
        startAgain({words, static_cast<std::size_t>(count)});
    return end.startsAgain ? couldNotStart : end.status;
}
