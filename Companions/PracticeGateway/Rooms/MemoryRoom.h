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

/// What is remembered, one thing at a time: filing, changing, forgetting, and reading by name or
/// by type. The words of a refusal say what was asked for and what is missing.
///
/// Memories are documents; beside them stands the view `note`, by which a program that reads the
/// file itself finds them, as in the product's own store: `id` with "m:" before it is a memory's
/// id, `path` its scope.
class MemoryRoom {
public:
    static std::string_view schema();

    MemoryRoom(DocumentStore& documents, Clock clock);

    GatewayResponse answer(const ReadCase::Grab& request);
    GatewayResponse answer(const ReadCase::GetByType& request);
    GatewayResponse answer(const ReadCase::ListTypes& request);
    GatewayResponse answer(const NotesCase::Write& request);
    GatewayResponse answer(const NotesCase::Delete& request);
    GatewayResponse answer(const NotesCase::Edit& request);
    GatewayResponse answer(const NotesCase::Patch& request);
    GatewayResponse answer(const NotesCase::EditFilters& request);

private:
    /// The memory of this id, or the sentence that there is none.
    std::expected<Document, std::string> memory(std::string_view id);
    GatewayResponse save(Document memory);

    DocumentStore& m_documents;
    Clock m_clock;
};

} // namespace wendlow
