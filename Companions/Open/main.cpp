// wendlow-open PANE: opens one of Wendlow's windows. Where the application runs, it is asked over
// the session bus; otherwise it is started with that window. No window is made here, so that a menu
// or a shell has its answer at once.

#include "ApplicationSeat.h"
#include "BusPulse.h"
#include "SessionBusAddress.h"

#include <QCoreApplication>
#include <QProcess>

#include <fmt/format.h>

#include <array>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace {

using namespace wendlow;
using WindowDoor::Pane;

enum ExitStatus { succeeded = 0, failed = 1, wrongUsage = 2 };

constexpr std::string_view usage = "usage: wendlow-open settings|memories|stats|first-run\n";

constexpr std::string_view help = R"(
Opens one of Wendlow's windows, in the application that runs, or by starting it.

Exit status: 0; 1 when the application could neither be asked nor started; 2 for wrong usage.
)";

/// The window that a person means: by the words of its title, or as the door calls it.
std::optional<Pane> paneNamed(std::string_view word) {
    constexpr std::array<std::pair<std::string_view, Pane>, 2> spoken{
        {{"memories", Pane::editor}, {"first-run", Pane::onboarding}}};
    for (const auto& [name, pane] : spoken)
        if (word == name)
            return pane;
    return WindowDoor::pane(word);
}

ExitStatus complain(std::string_view sentence) {
    fmt::print(stderr, "wendlow-open: {}\n", sentence);
    return failed;
}

ExitStatus start(Pane pane) {
    QProcess application;
    application.setProgram(QCoreApplication::applicationDirPath() +
                           QStringLiteral("/wendlow-settings"));
    application.setArguments({QString::fromStdString(WindowDoor::argument(pane))});
    // Of its own: what asked for the window may end, and whoever reads what is said here with it. A
    // word to a pipe that nobody reads any more would end the application.
    application.setStandardInputFile(QProcess::nullDevice());
    application.setStandardOutputFile(QProcess::nullDevice());
    application.setStandardErrorFile(QProcess::nullDevice());
    if (!application.startDetached())
        return complain(
            fmt::format("{} could not be started", application.program().toStdString()));
    return succeeded;
}

ApplicationSeat::Heard ask(Pane pane) {
    // A bus that says nothing would hold this up for half a minute.
    if (sessionBusPulse(std::chrono::seconds(2)) != BusPulse::answers)
        return ApplicationSeat::Heard::nobody;
    const auto bus = QDBusConnection::connectToBus(sessionBusAddress(), uniqueConnectionName());
    return bus.isConnected()
               ? ApplicationSeat::ask(bus, {.pane = pane, .settingsPane = std::nullopt})
               : ApplicationSeat::Heard::nobody;
}

ExitStatus open(Pane pane) {
    switch (ask(pane)) {
    case ApplicationSeat::Heard::yes:
        return succeeded;
    case ApplicationSeat::Heard::silent:
        return complain(ApplicationSeat::unheardSentence());
    case ApplicationSeat::Heard::nobody:
        break;
    }
    return start(pane);
}

} // namespace

int main(int count, char** words) {
    const QCoreApplication application(count, words);
    const std::string_view word = count == 2 ? words[1] : "";
    if (word == "--help") {
        fmt::print("{}{}", usage, help);
        return succeeded;
    }
    if (const auto pane = paneNamed(word))
        return open(*pane);
    fmt::print(stderr, "{}", usage);
    return wrongUsage;
}
