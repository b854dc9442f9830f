#include "DocumentStore.h"

#include <fmt/format.h>

#include "DocumentID.h"
#include "FilterText.h"

namespace wendlow {
namespace {

// `number` is the rowid under a name, so that other tables can refer to it; it is never given
// twice, since ids are made from it.
constexpr std::string_view tables = R"sql(
CREATE TABLE IF NOT EXISTS documents(
    number INTEGER PRIMARY KEY AUTOINCREMENT,
    kind INTEGER NOT NULL, id TEXT NOT NULL UNIQUE, type TEXT NOT NULL, scope TEXT NOT NULL,
    at REAL NOT NULL, filters TEXT NOT NULL, title TEXT NOT NULL, titled INTEGER NOT NULL,
    why TEXT NOT NULL, body TEXT NOT NULL, app TEXT, abstract TEXT, files TEXT NOT NULL,
    file_count INTEGER, framed INTEGER NOT NULL, session_tool TEXT, writer TEXT, session TEXT,
    subagent TEXT);

CREATE VIRTUAL TABLE IF NOT EXISTS document_words USING fts5(
    title, why, body, abstract, content = 'documents', content_rowid = 'number', prefix = '2 3',
    tokenize = 'unicode61 remove_diacritics 2');

CREATE TRIGGER IF NOT EXISTS document_added AFTER INSERT ON documents BEGIN
    INSERT INTO document_words(rowid, title, why, body, abstract)
    VALUES (new.number, new.title, new.why, new.body, new.abstract);
END;
CREATE TRIGGER IF NOT EXISTS document_removed AFTER DELETE ON documents BEGIN
    INSERT INTO document_words(document_words, rowid, title, why, body, abstract)
    VALUES ('delete', old.number, old.title, old.why, old.body, old.abstract);
END;
CREATE TRIGGER IF NOT EXISTS document_reworded
AFTER UPDATE OF title, why, body, abstract ON documents
WHEN (old.title, old.why, old.body, old.abstract)
    IS NOT (new.title, new.why, new.body, new.abstract) BEGIN
    INSERT INTO document_words(document_words, rowid, title, why, body, abstract)
    VALUES ('delete', old.number, old.title, old.why, old.body, old.abstract);
    INSERT INTO document_words(rowid, title, why, body, abstract)
    VALUES (new.number, new.title, new.why, new.body, new.abstract);
END;
)sql";

constexpr std::string_view columns =
    "kind, id, type, scope, at, filters, title, titled, why, body, app, abstract, files, "
    "file_count, framed, session_tool, writer, session, subagent";

// Not one statement for both: what conflicts would use up a number, and ids are made from those.
constexpr std::string_view updating = R"sql(
UPDATE documents SET kind = ?1, type = ?3, scope = ?4, at = ?5, filters = ?6, title = ?7,
    titled = ?8, why = ?9, body = ?10, app = ?11, abstract = ?12, files = ?13, file_count = ?14,
    framed = ?15, session_tool = ?16, writer = ?17, session = ?18, subagent = ?19
WHERE id = ?2 RETURNING number)sql";
constexpr std::string_view inserting = "INSERT INTO documents({}) VALUES "
                                       "(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?) RETURNING number";

std::string selecting(std::string_view where) {
    return fmt::format("SELECT {} FROM documents WHERE {} = ?", columns, where);
}

Document documentOf(const Statement& row) {
    return {.kind = static_cast<DocumentKind>(row.integer(0)),
            .id = row.text(1),
            .type = row.text(2),
            .scope = row.text(3),
            .at = row.real(4),
            .title = row.text(6),
            .titled = row.boolean(7),
            .why = row.text(8),
            .body = row.text(9),
            .filters = FilterText::read(row.view(5)),
            .app = row.textIfAny(10),
            .abstract = row.textIfAny(11),
            .files = FilterText::readList(row.view(12)),
            .fileCount = row.integerIfAny(13),
            .framed = row.boolean(14),
            .sessionTool = row.textIfAny(15),
            .writer = row.textIfAny(16),
            .session = row.textIfAny(17),
            .subagent = row.textIfAny(18)};
}

std::optional<Document> only(Statement& statement) {
    if (!statement.step())
        return std::nullopt;
    Document document = documentOf(statement);
    statement.reset();
    return document;
}

} // namespace

std::string_view DocumentStore::schema() {
    return tables;
}

DocumentStore::DocumentStore(PracticeDatabase& database)
    : m_database(database), m_update(database.prepare(updating)),
      m_insert(database.prepare(fmt::format(inserting, columns))),
      m_byID(database.prepare(selecting("id"))), m_byNumber(database.prepare(selecting("number"))) {
    load();
}

void DocumentStore::load() {
    m_facets = {};
    m_rollbacksSeen = m_database.rollbacks();
    Statement all = m_database.prepare("SELECT number, kind, type, scope, filters, at "
                                       "FROM documents");
    while (all.step())
        m_facets.set(all.integer(0), {.kind = static_cast<DocumentKind>(all.integer(1)),
                                      .type = all.view(2),
                                      .scope = all.view(3),
                                      .filters = all.view(4),
                                      .at = all.real(5)});
}

const DocumentFacets& DocumentStore::facets() {
    if (m_rollbacksSeen != m_database.rollbacks())
        load();
    return m_facets;
}

std::int64_t DocumentStore::put(const Document& document) {
    facets();
    const std::string filters = FilterText::write(document.filters);
    const std::string files = FilterText::writeList(document.files);
    const auto number = [&](Statement& statement) -> std::optional<std::int64_t> {
        statement.bind(static_cast<int>(document.kind), document.id, document.type, document.scope,
                       document.at, filters, document.title, document.titled, document.why,
                       document.body, document.app, document.abstract, files, document.fileCount,
                       document.framed, document.sessionTool, document.writer, document.session,
                       document.subagent);
        if (!statement.step())
            return std::nullopt;
        const std::int64_t given = statement.integer(0);
        statement.run();
        return given;
    };
    auto place = number(m_update);
    if (!place)
        place = number(m_insert);
    m_facets.set(*place, {.kind = document.kind,
                          .type = document.type,
                          .scope = document.scope,
                          .filters = filters,
                          .at = document.at});
    return *place;
}

bool DocumentStore::remove(std::string_view id) {
    facets();
    Statement removal = m_database.prepare("DELETE FROM documents WHERE id = ? RETURNING number");
    const std::string kept = DocumentID::kept(id);
    removal.bind(kept);
    if (!removal.step())
        return false;
    const std::int64_t number = removal.integer(0);
    removal.run();
    m_facets.remove(number);
    return true;
}

void DocumentStore::clear() {
    // Row by row, the trigger would tell the index the words of each once more.
    m_database.execute("DROP TRIGGER document_removed; DELETE FROM documents;"
                       "INSERT INTO document_words(document_words) VALUES('delete-all')");
    m_database.execute(tables);
    m_facets = {};
}

std::optional<Document> DocumentStore::find(std::string_view id) {
    const std::string kept = DocumentID::kept(id);
    m_byID.bind(kept);
    return only(m_byID);
}

std::optional<Document> DocumentStore::find(std::int64_t number) {
    m_byNumber.bind(number);
    return only(m_byNumber);
}

std::string DocumentStore::nextMemoryID() {
    Statement last = m_database.prepare("SELECT seq FROM sqlite_sequence WHERE name = 'documents'");
    const std::int64_t number = last.step() ? last.integer(0) : 0;
    return fmt::format("m{}", number + 1);
}

} // namespace wendlow
