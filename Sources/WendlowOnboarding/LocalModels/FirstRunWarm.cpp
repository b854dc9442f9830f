#include "FirstRunWarm.h"

#include "ClientStoreMode.h"
#include "SetupLog.h"
#include "TextFile.h"

#include <QProcess>

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include <fmt/format.h>

namespace wendlow::FirstRunWarm {

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

constexpr Milliseconds afterKill{2000};

constexpr std::array<std::pair<std::string_view, Outcome>, 3> outcomes{
    {{"ok", Outcome::ok}, {"timeout", Outcome::timeout}, {"failed", Outcome::failed}}};

std::optional<Outcome> outcomeNamed(std::string_view name) {
    const auto* const found =
        std::ranges::find(outcomes, name, &decltype(outcomes)::value_type::first);
    return found == outcomes.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::int64_t> wholeNumber(std::string_view text) {
    std::int64_t number = 0;
    const auto [end, failed] = std::from_chars(text.data(), text.data() + text.size(), number);
    return failed == std::errc() && end == text.data() + text.size() ? std::optional(number)
                                                                     : std::nullopt;
}

int countOf(Milliseconds time) {
    return static_cast<int>(std::max(time, Milliseconds::zero()).count());
}

Outcome fire(const Firing& firing, const std::string& input) {
    if (input.size() >= pipeBound) {
        SetupLog::line(fmt::format("warm-up: payload is {} B, over the {} B pipe bound — not fired "
                                   "(m:1460)",
                                   input.size(), pipeBound));
        return Outcome::failed;
    }
    const auto deadline = Clock::now() + firing.leash;
    const auto left = [&] {
        return countOf(std::chrono::ceil<Milliseconds>(deadline - Clock::now()));
    };
    QProcess hook;
    // It may print what it likes, and nobody has to read it for it to end.
    hook.setStandardOutputFile(QProcess::nullDevice());
    hook.setStandardErrorFile(QProcess::nullDevice());
    hook.start(QString::fromStdString(firing.hook.string()),
               {QStringLiteral("--harness"), QStringLiteral("claude-code")});
    if (!hook.waitForStarted(left()))
        return hook.error() == QProcess::FailedToStart ? Outcome::failed : Outcome::timeout;
    // A hook that has ended does not take it, and that is its own affair.
    hook.write(input.data(), static_cast<qint64>(input.size()));
    hook.closeWriteChannel();
    if (hook.state() != QProcess::NotRunning && !hook.waitForFinished(left()) &&
        hook.state() != QProcess::NotRunning) {
        hook.kill();
        hook.waitForFinished(countOf(afterKill));
        return Outcome::timeout;
    }
    return hook.exitStatus() == QProcess::NormalExit && hook.exitCode() == 0 ? Outcome::ok
                                                                             : Outcome::failed;
}

} // namespace

std::string_view text(Outcome outcome) {
    return std::ranges::find(outcomes, outcome, &decltype(outcomes)::value_type::second)->first;
}

std::string Marker::line() const {
    return fmt::format("build={} outcome={} ms={}", build, text(outcome), milliseconds);
}

std::filesystem::path path(const std::filesystem::path& support) {
    return support / "warmed-build";
}

std::optional<Marker> parse(const std::optional<std::string>& text) {
    if (!text)
        return std::nullopt;
    std::optional<std::string> build;
    std::optional<Outcome> outcome;
    std::optional<std::int64_t> milliseconds;
    std::string_view rest = *text;
    constexpr std::string_view blanks = " \t\r\n";
    while (true) {
        rest.remove_prefix(std::min(rest.find_first_not_of(blanks), rest.size()));
        if (rest.empty())
            break;
        const std::string_view word = rest.substr(0, rest.find_first_of(blanks));
        rest.remove_prefix(word.size());
        const auto equals = word.find('=');
        if (equals == std::string_view::npos)
            return std::nullopt;
        const std::string_view key = word.substr(0, equals);
        const std::string_view value = word.substr(equals + 1);
        if (key == "build")
            build = value;
        else if (key == "outcome")
            outcome = outcomeNamed(value);
        else if (key == "ms")
            milliseconds = wholeNumber(value);
    }
    if (!build || !outcome || !milliseconds)
        return std::nullopt;
    return Marker{.build = *build, .outcome = *outcome, .milliseconds = *milliseconds};
}

bool isWarm(const std::filesystem::path& marker, std::string_view build) {
    const auto found = parse(TextFile::read(marker));
    return found && found->build == build;
}

std::string payload(std::string_view home) {
    std::string quoted;
    for (const char letter : home) {
        if (letter == '\\' || letter == '"')
            quoted += '\\';
        quoted += letter;
    }
    return R"({"session_id":"warm-up","prompt":"wendlow warm-up",)"
           R"("hook_event_name":"UserPromptSubmit","cwd":")" +
           quoted + R"("})";
}

Result run(const Firing& firing) {
    if (isWarm(firing.marker, firing.build)) {
        SetupLog::line(
            fmt::format("warm-up: build {} already warmed here — nothing to spawn", firing.build));
        return {.alreadyWarm = true};
    }
    const std::string input = payload(firing.home);
    const auto began = Clock::now();
    const Outcome outcome = fire(firing, input);
    const auto taken = std::chrono::duration_cast<Milliseconds>(Clock::now() - began).count();
    const Marker marker{.build = firing.build, .outcome = outcome, .milliseconds = taken};
    [[maybe_unused]] const auto written =
        ClientStoreMode::write(marker.line() + "\n", firing.marker);
    SetupLog::line(fmt::format("warm-up: {} in {} ms (build {}, leash {})", text(outcome), taken,
                               firing.build, std::chrono::duration<double>(firing.leash).count()));
    return {.outcome = outcome, .milliseconds = taken};
}

} // namespace wendlow::FirstRunWarm
