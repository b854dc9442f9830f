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

/// Plans one file's part in an installation. Moves the file's bytes.
PlannedFile planInstallation(ToolFile file, InstalledBlock installed);
/// Commits an installation that brings `created` into being. What was created is added to the
/// receipt, and only when the commit changed something.
ConnectorOutcome install(std::vector<PlannedFile> files, const std::set<Created>& created,
                         const ReceiptStore& receipts, const Surroundings& surroundings);
/// Commits a removal. `notes`, about what stays behind, are said when it changed something; the
/// receipt goes then too.
ConnectorOutcome remove(std::vector<PlannedFile> files, Observations notes,
                        const ReceiptStore& receipts, const Surroundings& surroundings);

/// Plans one file's part in a removal. What then `isEmpty` is deleted where it was created by us;
/// otherwise it stays, and is spoken of where the verb changed it. Moves the file's bytes.
PlannedFile planRemoval(ToolFile file, RemovedBlock removed, bool createdByUs,
                        bool (*isEmpty)(std::string_view bytes), Observations& notes);

} // namespace ConnectorVerb
} // namespace wendlow
