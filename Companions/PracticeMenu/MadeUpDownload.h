#pragma once

#include "LocalModelsProgress.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// A download that tells of gigabytes and puts down a few kilobytes, all in a folder of its own:
/// the real places may hold what is a person's. Each file and folder that it makes is on its
/// receipts, or is a folder above them that it takes away itself. Blocks on the disk.
class MadeUpDownload {
public:
    struct Places {
        std::filesystem::path support; ///< the folder that holds the product's own
        std::filesystem::path files;   ///< the folder that all goes to
    };
    /// A writer that is not as it should be.
    struct Manner {
        std::chrono::milliseconds lasts = std::chrono::seconds(60);
        std::optional<double> stallsAt = std::nullopt;  ///< 0…1: gets no further
        std::optional<std::int32_t> pid = std::nullopt; ///< tells this for its own
        std::vector<std::string> modelsBefore;          ///< what the host held already
    };

    /// No model has this name, so that a real host that is asked to delete it deletes nothing.
    static constexpr std::string_view model = "wendlow-practice/no-model";

    /// One that was done before stays so.
    MadeUpDownload(Places places, Manner manner);

    /// Brings the download to where it is after so long, files and all, and writes the progress
    /// file.
    void advance(std::chrono::milliseconds elapsed);
    /// 0…1.
    double fraction() const { return m_fraction; }
    bool isDone() const { return m_fraction >= 1; }

    const LocalModelsProgress& progress() const { return m_progress; }
    std::filesystem::path progressFile() const;
    /// Behind the undo: the progress file and the folders that it leaves.
    void clearAway();

private:
    void put(const std::filesystem::path& file);
    void install(std::size_t row);
    void setRow(std::size_t row, double done);

    const Places m_places;
    const Manner m_manner;
    LocalModelsProgress m_progress;
    double m_fraction = 0;
    std::vector<std::filesystem::path> m_folders; ///< made by us, each after the one above it
};

} // namespace wendlow
