#pragma once

#include "BlockEdit.h"
#include "ConfigFile/Transaction.h"
#include "ConnectorReceipt.h"
#include "ConnectorTypes.h"
#include "JSONBlock.h"
#include "NewFolder.h"
#include "OurPart.h"
#include "ReceiptStore.h"
#include "ToolFile.h"
#include "TranslationContext.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace wendlow {

/// One file as a verb began with it, and what the verb would make of it.
struct PlannedFile {
    ToolFile file;
    std::optional<OurPart> what = std::nullopt; ///< nothing: entries, of whatever kind
    mode_t born = 0666;                         ///< the most that the file permits where it is made
    bool edited = false;                        ///< false: the file is right as it stands
    std::optional<std::string> after;           ///< of an edited file; nothing: it is to be deleted
    std::vector<std::string> lost; ///< of what others wrote in it; said with the copy of it
    bool heldOurs = true;          ///< false: nothing is said to have been removed from it

    bool changes() const { return edited && file.bytes != after; }
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

/// In which order a verb says of each file what became of it.
enum class FileOrder { changedFirst, asPlanned };

/// What is to be known of one of a tool's files to take it away again, and to speak of it.
struct FileRole {
    Created file;                               ///< the receipt's case for a file that we made
    std::optional<OurPart> what = std::nullopt; ///< nothing: entries, of whatever kind
    /// The most that a file which we make permits; 0600 where it may come to hold secrets.
    mode_t born = 0666;
    /// Whether a file with these bytes holds nothing any more, and the sentence for one that stays.
    bool (*isEmpty)(std::string_view bytes) = JSONBlock::isEmptyObject;
    const char* emptyWords =
        sayLater("this file is now empty and remains, because Wendlow did not create it");
    /// Whether a file that we made and that holds these bytes goes; one that its tool has put
    /// something of its own into may, and is not empty.
    bool (*isLeftover)(std::string_view bytes) = isEmpty;
};

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
    std::unique_ptr<NewFolder> folder = nullptr; ///< kept when the commit changed something

    /// Adds one file's part, moving the file's bytes.
    void add(ToolFile toolFile, InstalledBlock installed, const FileRole& role);
};

/// A planned removal.
struct Removal {
    std::vector<PlannedFile> files; ///< in the order of writing
    Observations notes;             ///< about what stays behind; said when it changed something
    std::function<Observations()> afterwards; ///< done then, and has its say behind them

    /// Adds one file's part, moving the file's bytes. What then is empty is deleted where `created`
    /// says that the file is ours; otherwise it stays, and is spoken of where the verb changed it.
    void add(ToolFile file, RemovedBlock removed, const FileRole& role,
             const std::set<Created>& created);
};

/// Commits an installation. What it created is added to `receipt`, which is written only when the
/// commit changed something.
ConnectorOutcome install(Installation installation, const ReceiptStore& receipts,
                         ConnectorReceipt receipt, const Surroundings& surroundings);
/// Commits a removal. The receipt goes when it changed something.
ConnectorOutcome remove(Removal removal, const ReceiptStore& receipts,
                        const Surroundings& surroundings);

} // namespace ConnectorVerb
} // namespace wendlow
