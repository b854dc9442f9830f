#include "LocalModelsScreen.h"

#include "DateWords.h"
#include "JourneyWords.h"
#include "LocalModelsUndo.h"
#include "Say.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <system_error>
#include <utility>

#include <sys/stat.h>

namespace wendlow::LocalModelsScreen {

namespace {

namespace Words = JourneyWords::LocalModels;
using Row = LocalModelsProgress::Row;
using Sample = LocalModelsProgress::Sample;

/// What was written longer ago says nothing of now.
constexpr double freshness = 20;
/// A rate that was watched for less is none.
constexpr double shortestWatch = 60;
constexpr int minutesStep = 5;

double secondsOf(Time time) {
    return std::chrono::duration<double>(time.time_since_epoch()).count();
}

std::string label(const Size& size) {
    return size ? bytesLabel(*size) : std::string();
}

double rateOf(const Sample& from, const Sample& to) {
    return (static_cast<double>(to.bytes) - static_cast<double>(from.bytes)) / (to.at - from.at);
}

/// Bytes in a second over the whole time, where it was even enough to be carried on.
std::optional<double> evenRate(const std::vector<Sample>& sorted) {
    const Sample& first = sorted.front();
    const Sample& last = sorted.back();
    if (last.at - first.at < shortestWatch || last.bytes <= first.bytes)
        return std::nullopt;
    const double rate = rateOf(first, last);
    const double half = first.at + (last.at - first.at) / 2;
    const auto middle = std::ranges::find_if(
        sorted.rbegin(), sorted.rend(), [half](const Sample& sample) { return sample.at <= half; });
    if (middle == sorted.rend() || middle->at <= first.at || middle->at >= last.at)
        return std::nullopt;
    const auto even = [rate](double part) { return part > rate / 2 && part < rate * 2; };
    if (!even(rateOf(first, *middle)) || !even(rateOf(*middle, last)))
        return std::nullopt;
    return rate;
}

} // namespace

RowFace face(const Row& row, Writer writer) {
    using Kind = RowFace::Kind;
    if (row.state == Row::done)
        return {.kind = row.present ? Kind::present : Kind::done, .total = row.totalBytes};
    if (row.state == Row::active) {
        if (writer == Writer::alive)
            return {
                .kind = Kind::progress, .bytes = row.bytes.value_or(0), .total = row.totalBytes};
        return {.kind = Kind::waiting, .total = row.totalBytes};
    }
    return {.kind = row.present ? Kind::present : Kind::waiting, .total = row.totalBytes};
}

std::string name(const Row& row) {
    constexpr std::array<std::pair<std::string_view, JourneyWords::Text>, 3> known{
        {{"runtime", Words::rowRuntime},
         {"model", Words::rowNaming},
         {"asr", Words::rowTranscription}}};
    for (const auto& [id, name] : known)
        if (row.id == id)
            return std::string(name.said());
    return row.label;
}

std::string rowLine(const RowFace& face) {
    switch (face.kind) {
    case RowFace::Kind::done:
        return Words::rowState(Words::rowDone, label(face.total));
    case RowFace::Kind::present:
        return Words::rowState(Words::rowPresent, label(face.total));
    case RowFace::Kind::progress:
        return face.total ? Words::rowProgress(bytesLabel(face.bytes), bytesLabel(*face.total))
                          : Words::rowProgressSoFar(bytesLabel(face.bytes));
    case RowFace::Kind::waiting:
        break;
    }
    return Words::rowState(Words::rowWaiting, label(face.total));
}

std::optional<double> fraction(const RowFace& face) {
    if (face.kind != RowFace::Kind::progress || face.total.value_or(0) <= 0)
        return std::nullopt;
    return std::clamp(static_cast<double>(face.bytes) / static_cast<double>(*face.total), 0.0, 1.0);
}

std::string totalLine(const Reading& progress, Writer writer) {
    if (!progress || writer == Writer::gone || progress->allDownloadsDone())
        return {};
    const std::int64_t total = progress->knownTotalBytes().value_or(0);
    if (total <= 0)
        return {};
    return Words::totalLine(bytesLabel(std::min(progress->downloadedBytes(), total)),
                            bytesLabel(total));
}

std::optional<Estimate> estimate(const Reading& progress, Writer writer, Time now) {
    if (!progress || writer == Writer::gone || progress->allDownloadsDone())
        return std::nullopt;
    const auto total = progress->knownTotalBytes();
    if (!total || secondsOf(now) - progress->writtenAt > freshness)
        return std::nullopt;
    return estimate(progress->samples, *total - progress->downloadedBytes(), now);
}

std::optional<Estimate> estimate(std::vector<Sample> samples, std::int64_t remainingBytes,
                                 Time now) {
    // Times that are no numbers have no order.
    std::erase_if(samples, [](const Sample& sample) { return !std::isfinite(sample.at); });
    if (remainingBytes < 1 || samples.empty())
        return std::nullopt;
    std::ranges::stable_sort(samples, {}, &Sample::at);
    if (secondsOf(now) - samples.back().at > freshness)
        return std::nullopt;
    const auto rate = evenRate(samples);
    if (!rate)
        return std::nullopt;
    constexpr double minute = 60;
    constexpr double longest = 7 * 24 * 60;
    const double minutes = static_cast<double>(remainingBytes) / *rate / minute;
    // Nobody waits for longer; and it would not fit.
    if (!(minutes < longest))
        return std::nullopt;
    const int rounded =
        std::max(minutesStep, static_cast<int>(std::lround(minutes / minutesStep)) * minutesStep);
    return Estimate{.minutes = rounded, .doneBy = now + std::chrono::minutes(rounded)};
}

std::string estimateLine(const Estimate& estimate, const QLocale& locale) {
    return Words::estimate(DateWords::time(estimate.doneBy, locale).toStdString(),
                           estimate.minutes);
}

bool needsWake(const Reading& progress, Writer writer) {
    return progress && progress->running && writer == Writer::gone && !progress->allDownloadsDone();
}

bool offersCancel(const Reading& progress) {
    if (!progress || !progress->allDownloadsDone())
        return true;
    const LocalModelsProgress::Receipts& installed = progress->installed;
    return installed.runtimeDir || installed.agentPlist || installed.pulledModel ||
           installed.asrCacheDir || installed.senkoDir;
}

std::string hint(const Reading& progress, Size appBytes) {
    const Size footprint = progress ? progress->footprintBytes() : std::nullopt;
    const bool sworn = LocalModelsUndo::leavesNothingBehind(
        progress ? std::optional(progress->installed) : std::nullopt);
    return Words::hint(label(appBytes), bytesLabel(footprint.value_or(expectedFootprint)),
                       sworn ? Words::Behind::nothing : Words::Behind::notSworn);
}

std::string bytesLabel(std::int64_t bytes) {
    constexpr std::int64_t kilo = 1000;
    constexpr std::int64_t mega = 1'000'000;
    constexpr std::int64_t giga = 1'000'000'000;
    const auto value = static_cast<double>(bytes);
    if (bytes < 0)
        return say("{} B", 0);
    if (bytes < kilo)
        return say("{} B", bytes);
    if (bytes < mega)
        return say("{} KB", std::lround(value / static_cast<double>(kilo)));
    if (bytes < giga)
        return say("{} MB", std::lround(value / static_cast<double>(mega)));
    return say("{:.1f} GB", value / static_cast<double>(giga));
}

Size appBundleBytes(const std::filesystem::path& path) {
    std::filesystem::path bundle = path;
    while (bundle.has_relative_path() && bundle.extension() != ".app")
        bundle = bundle.parent_path();
    if (bundle.extension() != ".app")
        return std::nullopt;
    constexpr std::int64_t block = 512; // whatever the disk's own are
    std::int64_t bytes = 0;
    std::error_code failed;
    for (std::filesystem::recursive_directory_iterator
             each(bundle, std::filesystem::directory_options::skip_permission_denied, failed),
         end;
         !failed && each != end; each.increment(failed)) {
        struct stat found{};
        if (::lstat(each->path().c_str(), &found) == 0 && S_ISREG(found.st_mode))
            bytes += static_cast<std::int64_t>(found.st_blocks) * block;
    }
    return bytes;
}

} // namespace wendlow::LocalModelsScreen
