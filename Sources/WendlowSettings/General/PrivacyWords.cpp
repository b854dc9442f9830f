#include "General/PrivacyWords.h"

#include "ClientInstance.h"
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

const char* plural(std::int64_t count) {
    return count == 1 ? "" : "s";
}

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
    return fmt::format("Deleting… {} day{} left{}", days, plural(days),
                       bytes ? ", " + storageLabel(*bytes) : "");
}

std::string frameKeepNotCleared(std::int64_t days) {
    return fmt::format("{} day{} could not be cleared", days, plural(days));
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
    std::string body = "This deletes all your screenshots from your recorded moments. ";
    if (screenshots)
        body = fmt::format("This deletes all {} screenshot{} {} from your recorded moments. ",
                           *screenshots, plural(*screenshots),
                           bytes ? fmt::format("(about {})", storageLabel(*bytes))
                                 : "(working out the size…)");
    body += "Screen OCR will remain.";
    return meetingsKept ? body + " Meeting recordings are kept." : body;
}

std::string reelKeepConfirmBody(const std::optional<ReelStats>& stats) {
    if (!stats)
        return "This will delete screenshots from your meetings.";
    return fmt::format("This will delete screenshots from {} meeting{} (about {}).",
                       stats->meetings, plural(stats->meetings), storageLabel(stats->bytes));
}

std::string diagnosticLoggingDetail(bool on) {
    const std::string path = fmt::format("~/Library/Logs/{}", ClientInstance::traceLogName);
    return on ? fmt::format("Wendlow is keeping a detailed record of what it does, saved on this "
                            "Mac at {}. It may contain URLs, window titles and file paths. "
                            "Turning this off deletes it.",
                            path)
              : fmt::format("Nothing is being recorded and no log file exists. Turn this on only "
                            "while helping us track down a problem: the log is saved at {} and "
                            "may contain URLs, window titles and file paths.",
                            path);
}

bool selfNamesChanged(const std::string& text, const std::string& held) {
    const std::vector<std::string> names = SelfNames::tidy(std::vector<std::string>{text});
    return !names.empty() && fmt::format("{}", fmt::join(names, SelfNames::separator)) != held;
}

} // namespace wendlow::PrivacyWords
