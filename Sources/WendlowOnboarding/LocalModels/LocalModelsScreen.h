#pragma once

#include "LocalModelsProgress.h"

#include <QLocale>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// What the Local models screen makes of a reading. Pure but for `appBundleBytes`; any thread.
namespace wendlow::LocalModelsScreen {

using Time = std::chrono::system_clock::time_point;
using Size = std::optional<std::int64_t>;
using Reading = std::optional<LocalModelsProgress>;

/// Of which the models are where nothing is read yet.
inline constexpr std::int64_t expectedFootprint = 3'116'633'524;

enum class Writer { gone, alive };

struct RowFace {
    enum class Kind { done, present, waiting, progress };
    Kind kind = Kind::waiting;
    std::int64_t bytes = 0; ///< of a row in progress
    Size total = std::nullopt;
    bool operator==(const RowFace&) const = default;
};

struct Estimate {
    int minutes = 0;
    Time doneBy;
    bool operator==(const Estimate&) const = default;
};

RowFace face(const LocalModelsProgress::Row& row, Writer writer);
std::string name(const LocalModelsProgress::Row& row);
std::string rowLine(const RowFace& face);
/// Of a row in progress whose total is known, 0…1; else nothing.
std::optional<double> fraction(const RowFace& face);
/// Empty where nothing can be said.
std::string totalLine(const Reading& progress, Writer writer);

/// Silent rather than wrong: nothing unless the download has run evenly for a minute.
std::optional<Estimate> estimate(const Reading& progress, Writer writer, Time now);
std::optional<Estimate> estimate(std::vector<LocalModelsProgress::Sample> samples,
                                 std::int64_t remainingBytes, Time now);
std::string estimateLine(const Estimate& estimate, const QLocale& locale);

/// The writer died with work to do.
bool needsWake(const Reading& progress, Writer writer);
/// With nothing known there must be a way out.
bool offersCancel(const Reading& progress);

/// Why the sizes are told, with them.
std::string hint(const Reading& progress, Size appBytes);
/// In decimal units: "1.5 GB".
std::string bytesLabel(std::int64_t bytes);

/// On the disk, of the application that `path` lies in; nothing where it lies in none. Blocks.
Size appBundleBytes(const std::filesystem::path& path);

} // namespace wendlow::LocalModelsScreen
