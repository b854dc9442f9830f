#include "PracticeRooms.h"

#include <utility>

#include "DatabaseError.h"
#include "Fill/MemoryFill.h"

namespace wendlow {

PracticeRooms::PracticeRooms(std::unique_ptr<PracticeDatabase> database, const Clock& clock)
    : m_database(std::move(database)), m_clock(clock), m_documents(*m_database),
      m_memories(m_documents, clock), m_search(m_documents), m_recall(m_documents, clock),
      m_scopes(m_documents), m_rules(m_documents, m_scopes), m_mods(m_documents, clock),
      m_daemon(*m_database, clock) {}

std::expected<std::unique_ptr<PracticeRooms>, std::string>
PracticeRooms::open(const std::filesystem::path& file, const Clock& clock) try {
    auto database = PracticeDatabase::open(file);
    if (!database)
        return std::unexpected(database.error());
    (*database)
        ->install<DocumentStore, MemoryRoom, SearchRoom, RecallRoom, ScopeRoom, RuleRoom, ModRoom,
                  DaemonRoom>();
    return std::unique_ptr<PracticeRooms>(new PracticeRooms(std::move(*database), clock));
} catch (const std::exception& error) {
    return std::unexpected(file.string() + " could not be opened — " + error.what());
}

std::expected<void, std::string> PracticeRooms::fill(FillSize size) try {
    Statement any = m_database->prepare("SELECT 1 FROM documents");
    if (any.step())
        return {};
    {
        Transaction transaction(*m_database);
        MemoryFill(m_documents, m_mods, m_clock).fill(size);
        transaction.commit();
    }
    // The index in one piece is the fastest to search, and a fill is not waited for again.
    m_database->execute("INSERT INTO document_words(document_words) VALUES('optimize');"
                        "PRAGMA wal_checkpoint(TRUNCATE)");
    return {};
} catch (const std::exception& error) {
    return std::unexpected(std::string("the database could not be filled — ") + error.what());
}

} // namespace wendlow
