#pragma once

#include <expected>
#include <string>
#include <string_view>

#include "Clock.h"
#include "DocumentStore.h"
#include "GatewayResponse.h"
#include "NotesRequest.h"
#include "ReadRequest.h"

namespace wendlow {

/// What is answered about mods beside what there is, so that whoever shows them can be tried.
struct ModManner {
    bool none = false;         ///< nothing at all in place of what there is
    bool everyOutcome = false; ///< also a run of each outcome that is known, and of one that is not

    /// Reads words with commas: "none", "every-outcome". The unknown word is the error.
    static std::expected<ModManner, std::string> parse(std::string_view words);
};

/// The mods that are installed, those that were refused, and the ledger of runs. A mod is a memory
/// of type "mod"; its registry entry goes when the memory goes, its runs stay.
class ModRoom {
public:
    static std::string_view schema();

    ModRoom(DocumentStore& documents, Clock clock);

    /// Runs newest first; `limit` is of runs.
    GatewayResponse answer(const ReadCase::ModBoard& request);
    GatewayResponse answer(const ReadCase::ModsList& request);
    /// Installs a mod of the gateway's shelf at the root, or makes it newer by one revision.
    GatewayResponse answer(const NotesCase::ModInstall& request);

    /// From now on.
    void setManner(ModManner manner) { m_manner = manner; }

    /// Within a transaction: registers a mod beside the memory that stands for it.
    void put(const ModBoardEntry& mod, std::string_view why, std::string_view writer);
    void put(const ModRejectionEntry& rejection);
    void put(const ModRunEntry& run);

private:
    std::vector<ModBoardEntry> mods();
    std::vector<ModBehaviorEntry> behaviors(std::int64_t memory);
    std::vector<ModRejectionEntry> rejections();
    std::vector<ModRunEntry> runs(std::int64_t limit);

    DocumentStore& m_documents;
    Clock m_clock;
    ModManner m_manner;
};

} // namespace wendlow
