#pragma once

#include <memory>
#include <tuple>
#include <utility>

#include "Clock.h"
#include "DaemonRoom.h"
#include "DocumentStore.h"
#include "Fill/FillSize.h"
#include "MemoryRoom.h"
#include "PracticeDatabase.h"

namespace wendlow {

/// The database and all rooms over it. A further room is a member, a name in `install`, and one in
/// `all`. Throws `DatabaseError`. One thread at a time.
class PracticeRooms {
public:
    PracticeRooms(std::unique_ptr<PracticeDatabase> database, const Clock& clock)
        : m_database(std::move(database)), m_documents(installed()), m_memory(m_documents, clock),
          m_daemon(*m_database, clock) {}

    /// In the order in which they are asked.
    auto all() { return std::tie(m_memory, m_daemon); }

    /// Fills every room that can be filled, all or none. Does nothing where something has been
    /// filled in or filed before; whether it did.
    bool fill(FillSize size) {
        if (!m_documents.facets().rows().empty())
            return false;
        Transaction transaction(*m_database);
        const auto fillRoom = [&](auto& room) {
            if constexpr (requires { room.fill(size); })
                room.fill(size);
        };
        std::apply([&](auto&... rooms) { (fillRoom(rooms), ...); }, all());
        transaction.commit();
        return true;
    }

private:
    /// The tables are there before a room prepares its statements.
    PracticeDatabase& installed() {
        m_database->install<DocumentStore, MemoryRoom, DaemonRoom>();
        return *m_database;
    }

    const std::unique_ptr<PracticeDatabase> m_database;
    DocumentStore m_documents;
    MemoryRoom m_memory;
    DaemonRoom m_daemon;
};

} // namespace wendlow
