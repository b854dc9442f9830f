#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "Clock.h"
#include "DocumentStore.h"
#include "GatewayResponse.h"
#include "NotesRequest.h"
#include "ReadRequest.h"

namespace wendlow {

/// What AI tools and scripts look for: cards of whatever holds the words, and what is primed before
/// a prompt. Words as in `WordQuery`; nothing to look for finds nothing.
class RecallRoom {
public:
    static std::string_view schema();

    RecallRoom(DocumentStore& documents, Clock clock);

    /// The best first.
    GatewayResponse answer(const ReadCase::Search& request);
    /// The best of these days first; a day that is absent does not bound.
    GatewayResponse answer(const ReadCase::Recall& request);
    /// The words one behind the other, the newest first, each with the line in which they stand.
    GatewayResponse answer(const ReadCase::Grep& request);
    /// A page of what holds the words, or of everything, the newest first.
    GatewayResponse answer(const ReadCase::Browse& request);
    /// The three memories that have most to do with the prompt.
    GatewayResponse answer(const ReadCase::Primed& request);
    /// The names by which the person goes, as they stand after the request.
    GatewayResponse answer(const NotesCase::SelfNames& request);
    /// The practice gateway reads no configuration, and says so.
    GatewayResponse answer(const ReadCase::ConfigScan& request);

private:
    /// What `MATCH` finds, in `order`, that `takes` accepts, at most `limit`.
    std::vector<Document> found(const std::optional<std::string>& match, std::string_view order,
                                std::int64_t limit,
                                const std::function<bool(const Document&)>& takes);

    DocumentStore& m_documents;
    Clock m_clock;
};

} // namespace wendlow
