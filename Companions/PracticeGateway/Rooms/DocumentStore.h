#pragma once

#include <optional>
#include <string_view>

#include "Document.h"
#include "DocumentFacets.h"
#include "PracticeDatabase.h"

namespace wendlow {

/// Everything with words, of all rooms: the table, the full-text index that triggers keep beside
/// it, and the facets in memory. A room whose things can be searched puts a document for each and
/// may refer to `documents(number)`. Throws `DatabaseError`.
class DocumentStore {
public:
    static std::string_view schema();

    explicit DocumentStore(PracticeDatabase& database);

    /// Adds the document, or replaces the one of its id. Gives its number.
    std::int64_t put(const Document& document);
    /// By an id as `find` takes it.
    bool remove(std::string_view id);
    /// Removes everything, within a transaction.
    void clear();
    /// By the id of any kind; a memory's also as it is cited, see `DocumentID`.
    std::optional<Document> find(std::string_view id);
    std::optional<Document> find(std::int64_t number);
    /// The id of the next memory; ids of removed ones do not come back.
    std::string nextMemoryID();

    const DocumentFacets& facets();

    PracticeDatabase& database() { return m_database; }

private:
    void load();

    PracticeDatabase& m_database;
    DocumentFacets m_facets;
    std::int64_t m_rollbacksSeen = 0;
    Statement m_update;
    Statement m_insert;
    Statement m_byID;
    Statement m_byNumber;
};

} // namespace wendlow
