#pragma once

#include "LocalModelsProgress.h"

#include <QCoroTask>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// Takes back what the download has put on the machine, and nothing else. Two processes may do so,
/// one after the other or at once.
namespace wendlow::LocalModelsUndo {

using Receipts = LocalModelsProgress::Receipts;

/// Asks the model host to.
struct DeleteModel {
    std::string name;
    bool operator==(const DeleteModel&) const = default;
};
/// Stops the agent and removes its file.
struct BootoutAgent {
    std::string plist;
    std::string label;
    bool operator==(const BootoutAgent&) const = default;
};
struct RemoveDirectory {
    std::string path;
    bool operator==(const RemoveDirectory&) const = default;
};
struct RemoveFile {
    std::string path;
    bool operator==(const RemoveFile&) const = default;
};
/// The model host's folder, where it was not there before.
struct RemoveModelFolder {
    std::string path;
    bool operator==(const RemoveModelFolder&) const = default;
};
using Step =
    std::variant<DeleteModel, BootoutAgent, RemoveDirectory, RemoveFile, RemoveModelFolder>;
using Steps = std::vector<Step>;

/// A model that the host had before is not ours, though we pulled it.
bool weInstalled(std::string_view model, const Receipts& receipts);

/// In the order in which they are done: the model goes first, since its host is stopped next.
Steps plan(const Receipts& receipts, const std::vector<std::string>& blobsAfterStart);
/// With the partial files that are there now. Blocks.
Steps planNow(const Receipts& receipts);

/// Those that `perform` would not refuse. Asks no disk.
Steps permitted(Steps steps, const std::filesystem::path& home,
                const std::filesystem::path& support);

/// The host's partial files that this pull began. Blocks.
std::vector<std::string> partialBlobs(const Receipts& receipts);
/// Times in seconds since 1970.
bool isPartialBlobAfterStart(std::string_view name, double modified, double since);

/// What a person is told, one line each: what goes, what stays, what may be left.
std::vector<std::string> describe(const Steps& steps);
std::vector<std::string> keeps(const Receipts& receipts);
std::vector<std::string> caveats(const Receipts& receipts);
bool leavesNothingBehind(const std::optional<Receipts>& receipts);

/// What performing needs of the platform.
struct Surroundings {
    std::filesystem::path home;
    std::filesystem::path support; ///< the product's own folder
    std::string modelHost;         ///< "http://127.0.0.1:11434"
    /// Stops the person's agent of this label; its exit status. Blocks, off the UI thread.
    std::function<int(const std::string& label)> bootout;
    std::function<void(const std::string& line)> log; ///< any thread

    /// This person's.
    static Surroundings current();
};

/// Does all of them, whatever becomes of each; the log tells. What may not be removed is refused.
/// Waits for disk and host off the calling thread, which needs an event loop.
QCoro::Task<> perform(Steps steps, Surroundings surroundings);

} // namespace wendlow::LocalModelsUndo
