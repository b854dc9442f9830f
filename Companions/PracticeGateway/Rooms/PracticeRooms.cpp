#include "PracticeRooms.h"

#include <utility>

#include "DatabaseError.h"
#include "Fill/DaysGoOn.h"
#include "Fill/MemoryFill.h"
#include "Fill/WorkFill.h"

namespace wendlow {

PracticeRooms::PracticeRooms(std::unique_ptr<PracticeDatabase> database, const Clock& clock)
    : m_database(std::move(database)), m_clock(clock), m_documents(*m_database),
      m_memories(m_documents, clock), m_search(m_documents), m_recall(m_documents),
      m_scopes(m_documents), m_rules(m_documents, m_scopes), m_primed(m_documents, m_scopes, clock),
      m_mods(m_documents, clock), m_ledger(*m_database), m_keep(m_documents, clock),
      m_moments(m_documents, m_ledger, m_keep, clock), m_meetings(m_documents),
      m_days(m_documents, m_ledger, m_keep, clock), m_hours(m_ledger, m_keep, m_documents, clock),
      m_recording(m_documents, clock), m_phrase(m_documents),
      m_grants(*m_database, m_recording, clock), m_daemon(*m_database, clock) {}

std::expected<std::unique_ptr<PracticeRooms>, std::string>
PracticeRooms::open(const std::filesystem::path& file, const Clock& clock) try {
    auto database = PracticeDatabase::open(file);
    if (!database)
        return std::unexpected(database.error());
    (*database)
        ->install<DocumentStore, Settings, MemoryRoom, SearchRoom, RecallRoom, ScopeRoom, RuleRoom,
                  PrimeRoom, ModRoom, ActivityLedger, KeepRoom, MomentRoom, MeetingRoom, DayRoom,
                  LedgerRoom, RecordingRoom, PhraseRoom, GrantRoom, DaemonRoom>();
    return std::unique_ptr<PracticeRooms>(new PracticeRooms(std::move(*database), clock));
} catch (const std::exception& error) {
    return std::unexpected(file.string() + " could not be opened — " + error.what());
}

std::expected<void, std::string> PracticeRooms::fill(FillSize size) try {
    Statement any = m_database->prepare("SELECT 1 FROM documents");
    if (any.step()) {
        Transaction transaction(*m_database);
        DaysGoOn(m_ledger, m_clock).catchUp();
        transaction.commit();
        return {};
    }
    {
        Transaction transaction(*m_database);
        MemoryFill(m_documents, m_mods, m_clock).fill(size);
        WorkFill(m_documents, m_ledger, m_moments, m_meetings, m_keep, m_clock).fill(size);
        fillState();
        transaction.commit();
    }
    // The index in one piece is the fastest to search, and a fill is not waited for again.
    m_database->execute("INSERT INTO document_words(document_words) VALUES('optimize');"
                        "PRAGMA wal_checkpoint(TRUNCATE)");
    return {};
} catch (const std::exception& error) {
    return std::unexpected(std::string("the database could not be filled — ") + error.what());
}

std::expected<void, std::string> PracticeRooms::passTime() try {
    Transaction transaction(*m_database);
    DaysGoOn(m_ledger, m_clock).pass();
    transaction.commit();
    return {};
} catch (const std::exception& error) {
    return std::unexpected(std::string("the day could not go on — ") + error.what());
}

std::expected<void, std::string> PracticeRooms::addMoment() try {
    Transaction transaction(*m_database);
    WorkFill(m_documents, m_ledger, m_moments, m_meetings, m_keep, m_clock).addMoment();
    transaction.commit();
    return {};
} catch (const std::exception& error) {
    return std::unexpected(std::string("no moment could be added — ") + error.what());
}

void PracticeRooms::fillState() {
    m_grants.grantAll();
    m_phrase.makeKey("a fixed key");
    m_daemon.answer(ControlCase::ConnectApp{"claude-code"});
    m_daemon.answer(ControlCase::ConnectApp{"codex"});
    const auto shipped = RuleOrigin::shipped;
    m_recording.put(RuleKind::app, "Keychain Access", RuleTier::never, shipped);
    m_recording.put(RuleKind::site, "bank.example", RuleTier::never, shipped);
    const auto user = RuleOrigin::user;
    m_recording.put(RuleKind::app, "Music", RuleTier::usageOnly, user);
    m_recording.put(RuleKind::site, "youtube.com", RuleTier::usageOnly, user);
    m_recording.put(RuleKind::word, "salary", RuleTier::never, user);
    m_recording.put(RuleKind::phrase, "medical record", RuleTier::never, user);
    m_recording.put(RuleKind::topic, "my health", RuleTier::never, user);
}

} // namespace wendlow
