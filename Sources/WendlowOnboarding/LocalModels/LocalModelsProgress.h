#pragma once

#include <chrono>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace wendlow {

/// What the menu-bar application's download of the local models says of itself: a file that it
/// writes anew as it goes, and that others read. Anybody's program could have written it.
struct LocalModelsProgress {
    struct Row {
        static constexpr std::string_view pending = "pending";
        static constexpr std::string_view active = "active";
        static constexpr std::string_view done = "done";
        static constexpr std::string_view skipped = "skipped";

        std::string id;    ///< "runtime", "model" and "asr" are known
        std::string label; ///< for others
        std::string state;
        bool download = false; ///< moves bytes
        std::optional<std::int64_t> bytes = std::nullopt;
        std::optional<std::int64_t> totalBytes = std::nullopt;
        bool expected = false; ///< the total is an advance figure
        bool present = false;  ///< was on the machine already

        bool operator==(const Row&) const = default;
    };
    /// All bytes at a time, for the estimate.
    struct Sample {
        double at = 0; ///< seconds since 1970
        std::int64_t bytes = 0;
        bool operator==(const Sample&) const = default;
    };
    /// What Ollama held before anything was pulled.
    struct OllamaInventory {
        std::string folder;
        bool folderExisted = false;
        std::vector<std::string> models;
        double takenAt = 0;
        bool operator==(const OllamaInventory&) const = default;
    };
    /// What has been put on the machine.
    struct Receipts {
        std::optional<std::string> runtimeDir = std::nullopt;
        std::optional<std::string> agentPlist = std::nullopt;
        std::optional<std::string> pulledModel = std::nullopt;
        std::optional<std::string> asrCacheDir = std::nullopt;
        std::optional<std::string> senkoDir = std::nullopt;
        std::optional<OllamaInventory> ollama = std::nullopt;
        std::optional<double> pullBeganAt = std::nullopt;
        std::optional<bool> oldModelWasOurs = std::nullopt;
        bool operator==(const Receipts&) const = default;
    };
    struct Done {
        std::size_t done = 0;
        std::size_t total = 0;
        bool operator==(const Done&) const = default;
    };

    std::int32_t pid = 0;
    double writtenAt = 0; ///< seconds since 1970
    bool running = false;
    // NOLINTBEGIN(readability-redundant-member-init): they may be left out of a list
    std::vector<Row> rows = {};
    std::vector<Sample> samples = {};
    Receipts installed = {};
    // NOLINTEND(readability-redundant-member-init)
    std::optional<bool> migrating = std::nullopt; ///< an update of the naming model

    bool operator==(const LocalModelsProgress&) const = default;

    static constexpr std::string_view fileName = "local-models-progress.json";
    /// In the product's folder in `support`, the folder that holds it.
    static std::string path(std::string_view support);
    /// The same in this person's home, read anew at each call.
    static std::string defaultPath();

    /// The file in words of its contents; nothing where it is missing, unreadable, too long or
    /// anything else. Blocks.
    static std::optional<LocalModelsProgress> read(const std::filesystem::path& path);
    static std::optional<LocalModelsProgress> decode(std::string_view json);
    std::string encoded() const;
    /// Puts the file in place whole, so that a reader sees the old or the new one. Blocks.
    std::expected<void, std::error_code> write(const std::filesystem::path& path) const;

    /// A process that we may not signal lives too, and so does one that was given the number since.
    bool writerAlive() const;
    std::vector<Row> downloadRows() const;
    /// Of these, those that were not there already.
    std::vector<Row> movedRows() const;
    /// Nothing where one of the rows that move does not know it.
    std::optional<std::int64_t> knownTotalBytes() const;
    std::int64_t downloadedBytes() const;
    /// On the disk, what was there already included; nothing while no row knows.
    std::optional<std::int64_t> footprintBytes() const;
    Done downloadsDone() const;
    bool allDownloadsDone() const;
    /// Of no progress: no.
    static bool stepsDone(const std::optional<LocalModelsProgress>& progress);

    /// Its figures can be true: none below zero or beyond the disk, and not of the future. What
    /// cannot is shown without figures.
    bool isPlausible(std::chrono::system_clock::time_point now,
                     std::optional<std::int64_t> diskBytes) const;
};

} // namespace wendlow
