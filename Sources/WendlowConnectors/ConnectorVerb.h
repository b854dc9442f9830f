#pragma once

#include "BlockEdit.h"
#include "ConfigFile/Transaction.h"
#include "ConnectorReceipt.h"
#include "ConnectorTypes.h"
#include "ReceiptStore.h"
#include "ToolFile.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// One file as a verb began with it, and what the verb would make of it.
struct PlannedFile {
    ToolFile file;
    std::string_view what = "entry";  ///< what of ours the file holds, for sentences
    bool edited = false;              ///< false: the file is right as it stands
    std::optional<std::string> after; ///< of an edited file; nothing: it is to be deleted

    bool changes() const { return edited && file.bytes != after; }
};

/// A plan that could not be made.
struct PlanFailure {
    std::string file; ///< as configured
    std::string reason;
};

/// What the verbs of every connector do alike once their plan is made: commit, keep the receipt,
/// and say of each file what became of it. Blocks on the disk.
namespace ConnectorVerb {

/// Where a verb's time comes from, and a test's chance to act as another writer.
struct Surroundings {
    std::function<Transaction::Date()> now = [] { return std::chrono::system_clock::now(); };
    std::function<void()> beforeRename = nullptr;
};

ConnectorOutcome refused(Observations observations);
ConnectorOutcome refused(const PlanFailure& failure);
/// "nothing was written — <reason>", of that file.
PlanFailure nothingWritten(const ToolFile& file, std::string_view reason);
/// The refusal of a verb that has to leave one of its files alone; nothing where none of them has
/// to be.
std::optional<ConnectorOutcome> readingRefusal(std::vector<std::optional<Observation>> reasons);

/// In which order a verb says of each file what became of it.
enum class FileOrder { changedFirst, asPlanned };

/// A planned installation.
struct Installation {
    std::vector<PlannedFile> files;                       ///< in the order of writing
    std::set<Created> created;                            ///< what it brings into being
    std::set<Adopted> adopted;                            ///< what it takes over
    std::optional<TrustSlots> trustSlots;                 ///< what takes the place of the receipt's
    std::optional<std::string> appVersion = std::nullopt; ///< the same
    Observations planNotes; ///< said unless it is refused, before all of ours
    Observations notes;     ///< said unless it is refused, behind all else
    FileOrder order = FileOrder::changedFirst;

    /// Adds one file's part. `file` is what is created where there is no such file yet. Moves the
    /// file's bytes.
    void add(ToolFile toolFile, InstalledBlock installed, Created file,
             std::string_view what = "entry");
};

/// Commits an installation. What it created is added to the receipt, and only when the commit
/// changed something.
ConnectorOutcome install(Installation installation, const ReceiptStore& receipts,
                         const Surroundings& surroundings);
/// Commits a removal. `notes`, about what stays behind, are said when it changed something; then
/// `afterwards` is done and has its say, and the receipt goes.
ConnectorOutcome remove(std::vector<PlannedFile> files, Observations notes,
                        const ReceiptStore& receipts, const Surroundings& surroundings,
                        const std::function<Observations()>& afterwards = {});

/// Plans one file's part in a removal. What then `isEmpty` is deleted where it was created by us;
/// otherwise it stays, and is spoken of where the verb changed it: "this file <emptyWords> and
/// remains". Moves the file's bytes.
PlannedFile planRemoval(ToolFile file, RemovedBlock removed, bool createdByUs,
                        bool (*isEmpty)(std::string_view bytes), Observations& notes,
                        std::string_view emptyWords = "is now empty");

} // namespace ConnectorVerb
} // namespace wendlow
