#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "DocumentStore.h"
#include "GatewayResponse.h"
#include "NotesRequest.h"

namespace wendlow {

/// The scopes, the folders that are mapped to them, and the scopes of sessions.
class ScopeRoom {
public:
    static std::string_view schema();

    explicit ScopeRoom(DocumentStore& documents);

    GatewayResponse answer(const NotesCase::ScopeBoard& request);
    GatewayResponse answer(const NotesCase::ListPaths& request);
    GatewayResponse answer(const NotesCase::MapPath& request);
    GatewayResponse answer(const NotesCase::SetPath& request);

    /// Where a session works: the scope that was set for it, else the scope of the innermost mapped
    /// folder that holds `folder`, else the root.
    std::string scopeOf(const std::optional<std::string>& session,
                        const std::optional<std::string>& folder);

private:
    /// Every scope with something in it, mapped to it or below it, by path.
    std::vector<ScopeBoardEntry> board();

    DocumentStore& m_documents;
};

} // namespace wendlow
