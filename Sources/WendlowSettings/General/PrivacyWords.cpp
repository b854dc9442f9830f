#include "General/PrivacyWords.h"

#include "ClientInstance.h"
#include "Say.h"
#include "SelfNames.h"
#include "StorageWords.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace wendlow::PrivacyWords {

namespace {

std::optional<std::int64_t> bytesOf(Used figure, const DiskUsed& disk) {
    switch (figure) {
    case Used::text:
        return disk.text;
    case Used::transcripts:
        return disk.transcripts;
    case Used::reel:
        return disk.reel;
    case Used::frames:
        return disk.frames;
    }
    std::unreachable();
}

} // namespace

std::string used(Used figure, const std::optional<DiskUsed>& disk) {
    const auto bytes = disk ? bytesOf(figure, *disk) : std::nullopt;
    return bytes ? storageLabel(*bytes) : "—";
}

std::int64_t daysToClear(const PurgeProgress& purge) {
    // In this order nothing overflows, whatever a daemon says.
    const std::int64_t days = std::max<std::int64_t>(purge.daysRemaining, 0);
    return std::max<std::int64_t>(days - std::ssize(purge.skipped), 0);
}

std::string frameKeepProgress(std::int64_t days, std::optional<std::int64_t> bytes) {
    if (bytes)
        return say.plural(days, "Deleting… {} day left, {}", "Deleting… {} days left, {}", days,
                          storageLabel(*bytes));
    return say.plural(days, "Deleting… {} day left", "Deleting… {} days left", days);
}

std::string frameKeepNotCleared(std::int64_t days) {
    return say.plural(days, "{} day could not be cleared", "{} days could not be cleared", days);
}

std::string purge(const std::optional<PurgeProgress>& purge) {
    if (!purge)
        return {};
    if (const std::int64_t days = daysToClear(*purge); days > 0)
        return frameKeepProgress(days, purge->bytesRemaining);
    return purge->skipped.empty() ? std::string() : frameKeepNotCleared(std::ssize(purge->skipped));
}

std::string frameKeepConfirmBody(std::optional<std::int64_t> screenshots,
                                 std::optional<std::int64_t> bytes, bool meetingsKept) {
    const auto deleted = [&] {
        if (!screenshots)
            return say("This deletes all your screenshots from your recorded moments.");
        if (!bytes)
            return say.plural(*screenshots,
                              "This deletes all {} screenshot (working out the size…) from your "
                              "recorded moments.",
                              "This deletes all {} screenshots (working out the size…) from your "
                              "recorded moments.",
                              *screenshots);
        return say.plural(*screenshots,
                          "This deletes all {} screenshot (about {}) from your recorded moments.",
                          "This deletes all {} screenshots (about {}) from your recorded moments.",
                          *screenshots, storageLabel(*bytes));
    };
    const std::string body = deleted() + " " + say("Screen OCR will remain.");
    return meetingsKept ? body + " " + say("Meeting recordings are kept.") : body;
}

std::string reelKeepConfirmBody(const std::optional<ReelStats>& stats) {
    if (!stats)
        return say("This will delete screenshots from your meetings.");
    return say.plural(stats->meetings, "This will delete screenshots from {} meeting (about {}).",
                      "This will delete screenshots from {} meetings (about {}).", stats->meetings,
                      storageLabel(stats->bytes));
}

std::string diagnosticLoggingDetail(bool on) {
    const std::string path = fmt::format("~/Library/Logs/{}", ClientInstance::traceLogName);
    return on ? say("Wendlow is keeping a detailed record of what it does, saved on this Mac at "
                    "{}. It may contain URLs, window titles and file paths. Turning this off "
                    "deletes it.",
                    path)
              : say("Nothing is being recorded and no log file exists. Turn this on only while "
                    "helping us track down a problem: the log is saved at {} and may contain "
                    "URLs, window titles and file paths.",
                    path);
}

bool selfNamesChanged(const std::string& text, const std::string& held) {
    const std::vector<std::string> names = SelfNames::tidy(std::vector<std::string>{text});
    return !names.empty() && fmt::format("{}", fmt::join(names, SelfNames::separator)) != held;
}

} // namespace wendlow::PrivacyWords
