#pragma once

#include <expected>
#include <filesystem>
#include <memory>
#include <string>
#include <tuple>

#include "ActivityLedger.h"
#include "Clock.h"
#include "DaemonRoom.h"
#include "DayRoom.h"
#include "DocumentStore.h"
#include "Fill/FillSize.h"
#include "GrantRoom.h"
#include "KeepRoom.h"
#include "LedgerRoom.h"
#include "MeetingRoom.h"
#include "MemoryRoom.h"
#include "ModRoom.h"
#include "MomentRoom.h"
#include "PhraseRoom.h"
#include "PracticeDatabase.h"
#include "PrimeRoom.h"
#include "RecallRoom.h"
#include "RecordingRoom.h"
#include "RuleRoom.h"
#include "ScopeRoom.h"
#include "SearchRoom.h"

namespace wendlow {

/// The database with the rooms that answer from it, opened together. One thread at a time; but for
/// `open` and `fill`, a database that goes bad shows as `DatabaseError`.
class PracticeRooms {
public:
    /// Opens the file, making what lacks of it. The error is a sentence.
    static std::expected<std::unique_ptr<PracticeRooms>, std::string>
    open(const std::filesystem::path& file, const Clock& clock);

    /// Fills a database in which nothing is yet, wholly or not at all. Leaves any other as it is,
    /// but that days that were filled once go on to now.
    std::expected<void, std::string> fill(FillSize size);

    /// The last filled day goes on by the time that has passed since the last call. The error
    /// is a sentence.
    std::expected<void, std::string> passTime();
    /// One more moment, of now. The error is a sentence.
    std::expected<void, std::string> addMoment();

    /// Every room, for the dispatch.
    auto all() {
        return std::tie(m_memories, m_search, m_recall, m_rules, m_primed, m_scopes, m_mods, m_keep,
                        m_moments, m_meetings, m_days, m_hours, m_recording, m_phrase, m_grants,
                        m_daemon);
    }
    DocumentStore& documents() { return m_documents; }
    RuleRoom& rules() { return m_rules; }
    PhraseRoom& phrase() { return m_phrase; }
    DaemonRoom& daemon() { return m_daemon; }
    ModRoom& mods() { return m_mods; }
    MeetingRoom& meetings() { return m_meetings; }
    GrantRoom& grants() { return m_grants; }

private:
    void fillState();
    PracticeRooms(std::unique_ptr<PracticeDatabase> database, const Clock& clock);

    std::unique_ptr<PracticeDatabase> m_database;
    Clock m_clock;
    DocumentStore m_documents;
    MemoryRoom m_memories;
    SearchRoom m_search;
    RecallRoom m_recall;
    ScopeRoom m_scopes;
    RuleRoom m_rules;
    PrimeRoom m_primed;
    ModRoom m_mods;
    ActivityLedger m_ledger;
    KeepRoom m_keep;
    MomentRoom m_moments;
    MeetingRoom m_meetings;
    DayRoom m_days;
    LedgerRoom m_hours;
    RecordingRoom m_recording;
    PhraseRoom m_phrase;
    GrantRoom m_grants;
    DaemonRoom m_daemon;
};

} // namespace wendlow
