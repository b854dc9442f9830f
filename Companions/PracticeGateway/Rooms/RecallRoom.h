#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "DaySpan.h"
#include "DocumentStore.h"
#include "GatewayResponse.h"
#include "NotesRequest.h"
#include "ReadRequest.h"

namespace wendlow {

/// What AI tools and scripts look for: cards of whatever holds the words. Words as in `WordQuery`;
/// nothing to look for finds nothing.
class RecallRoom {
public:
    static std::string_view schema();

    explicit RecallRoom(DocumentStore& documents);

    /// The best first.
    GatewayResponse answer(const ReadCase::Search& request);
    /// The best of these days first; a day that is absent does not bound. Without words the newest
    /// of the days.
    GatewayResponse answer(const ReadCase::Recall& request);
    /// The words one behind the other, the newest first, each with the line in which they stand.
    GatewayResponse answer(const ReadCase::Grep& request);
    /// A page of what holds the words, or of everything, the newest first.
    GatewayResponse answer(const ReadCase::Browse& request);
    /// The names by which the person goes, as they stand after the request.
    GatewayResponse answer(const NotesCase::SelfNames& request);
    /// The practice gateway reads no configuration, and says so.
    GatewayResponse answer(const ReadCase::ConfigScan& request);

private:
    struct Page {
        DaySpan days = {};
        std::int64_t limit = 0;
        std::int64_t offset = 0;
    };

    /// What `MATCH` finds, in `order`.
    std::vector<Document> found(const std::optional<std::string>& match, std::string_view order,
                                const Page& page);
    std::vector<Document> newest(const Page& page);

    DocumentStore& m_documents;
};

} // namespace wendlow
