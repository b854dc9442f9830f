#include "MadeUpDownload.h"

#include "ClientInstance.h"
#include "LocalModel.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <ranges>
#include <system_error>
#include <utility>

#include <unistd.h>

#include <fmt/format.h>

namespace wendlow {

namespace {

using Row = LocalModelsProgress::Row;

constexpr std::int64_t transcriptionBytes = 464'414'250;
constexpr std::size_t runtimeRow = 0;
constexpr std::size_t modelRow = 1;
constexpr std::size_t speechRow = 2;
constexpr std::size_t rowCount = 3;

double now() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

Row row(const char* id, const char* label, std::int64_t total) {
    return {.id = id,
            .label = label,
            .state = std::string(Row::pending),
            .download = true,
            .bytes = 0,
            .totalBytes = total};
}

} // namespace

MadeUpDownload::MadeUpDownload(Places places, Manner manner)
    : m_places(std::move(places)), m_manner(std::move(manner)) {
    const std::filesystem::path host = m_places.files / "ollama";
    if (auto before = LocalModelsProgress::read(progressFile());
        LocalModelsProgress::stepsDone(before)) {
        m_progress = *std::move(before);
        m_progress.pid = static_cast<std::int32_t>(::getpid());
        m_fraction = 1;
        return;
    }
    m_progress = {.pid = m_manner.pid.value_or(static_cast<std::int32_t>(::getpid())),
                  .running = true,
                  .rows = {row("runtime", "Runtime", LocalModel::runtimeApproxBytes),
                           row("model", "Model", LocalModel::approxDownloadBytes),
                           row("asr", "Speech", transcriptionBytes)}};
    std::error_code failed;
    m_progress.installed.ollama = {.folder = host.string(),
                                   .folderExisted = std::filesystem::is_directory(host, failed),
                                   .models = m_manner.modelsBefore,
                                   .takenAt = now()};
}

std::filesystem::path MadeUpDownload::progressFile() const {
    return LocalModelsProgress::path(m_places.support.string());
}

void MadeUpDownload::put(const std::filesystem::path& file) {
    std::vector<std::filesystem::path> missing;
    std::error_code failed;
    for (auto folder = file.parent_path(); !std::filesystem::exists(folder, failed);
         folder = folder.parent_path())
        missing.push_back(folder);
    for (const auto& folder : std::views::reverse(missing))
        if (std::filesystem::create_directory(folder, failed))
            m_folders.push_back(folder);
    constexpr std::size_t kilobytes = 4096;
    std::ofstream(file, std::ios::binary) << std::string(kilobytes, 'w');
}

/// What a row puts down; the receipt is on the disk before the file is.
void MadeUpDownload::install(std::size_t row) {
    const std::filesystem::path& files = m_places.files;
    auto& installed = m_progress.installed;
    const auto record = [this] {
        [[maybe_unused]] const auto written = m_progress.write(progressFile());
    };
    switch (row) {
    case runtimeRow:
        installed.runtimeDir = (files / "runtime").string();
        installed.agentPlist =
            (files / fmt::format("{}.plist", ClientInstance::ollamaAgentLabel)).string();
        record();
        put(files / "runtime/ollama");
        put(*installed.agentPlist);
        break;
    case modelRow: {
        // Files are dated by a clock that goes in steps and so is behind by up to one.
        constexpr double step = 0.02;
        installed.pulledModel = std::string(model);
        installed.pullBeganAt = now() - step;
        record();
        put(files / "ollama/blobs/sha256-0123456789-partial");
        break;
    }
    default:
        installed.asrCacheDir = (files / "speech").string();
        installed.senkoDir = (files / "voices").string();
        record();
        put(files / "speech/model.bin");
        put(files / "voices/voices.bin");
        break;
    }
}

void MadeUpDownload::setRow(std::size_t row, double done) {
    Row& shown = m_progress.rows[row];
    if (done > 0 && shown.state == Row::pending) {
        shown.state = Row::active;
        install(row);
    }
    const auto total = static_cast<double>(*shown.totalBytes);
    shown.bytes = static_cast<std::int64_t>(total * std::clamp(done, 0.0, 1.0));
    if (done >= 1)
        shown.state = Row::done;
}

void MadeUpDownload::advance(std::chrono::milliseconds elapsed) {
    const double wanted = static_cast<double>(elapsed.count()) /
                          static_cast<double>(std::max<std::int64_t>(m_manner.lasts.count(), 1));
    m_fraction = std::clamp(wanted, m_fraction, m_manner.stallsAt.value_or(1));
    const auto all = static_cast<double>(*m_progress.knownTotalBytes());
    double left = all * m_fraction;
    for (std::size_t row = 0; row < rowCount; ++row) {
        const auto total = static_cast<double>(*m_progress.rows[row].totalBytes);
        // What adds up to all of it need not do so to the last bit.
        setRow(row, m_fraction >= 1 ? 1 : left / total);
        left = std::max(left - total, 0.0);
    }
    m_progress.running = !isDone();
    m_progress.writtenAt = now();
    constexpr std::size_t mostSamples = 120;
    auto& samples = m_progress.samples;
    samples.push_back({.at = m_progress.writtenAt, .bytes = m_progress.downloadedBytes()});
    if (samples.size() > mostSamples)
        samples.erase(samples.begin());
    [[maybe_unused]] const auto written = m_progress.write(progressFile());
}

void MadeUpDownload::clearAway() {
    ::unlink(progressFile().c_str());
    // Whoever has put something of their own there keeps the folder.
    for (const auto& folder : std::views::reverse(m_folders))
        ::rmdir(folder.c_str());
    ::rmdir(progressFile().parent_path().c_str());
}

} // namespace wendlow
