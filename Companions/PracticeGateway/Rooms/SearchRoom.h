#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "BrowseCensus.h"
#include "DocumentStore.h"
#include "GatewayResponse.h"
#include "ReadRequest.h"

namespace wendlow {

/// The names are those of the contract.
enum class BrowseOrder { relevance, newest, oldest };
BOOST_DESCRIBE_ENUM(BrowseOrder, relevance, newest, oldest)

/// The store browser's question, and the state of the index behind it.
///
/// A term narrows when it has a word to look for; all words must be there, the last one as the
/// beginning of a word. Without an order asked for, what a term found stands by relevance, anything
/// else newest first. A page without a limit has 50 rows.
class SearchRoom {
public:
    static std::string_view schema() { return {}; } ///< it reads documents

    explicit SearchRoom(DocumentStore& documents);

    GatewayResponse answer(const ReadCase::TextBrowse& request);
    GatewayResponse answer(const ReadCase::TextIndexAudit& request);

private:
    struct Hit {
        std::int64_t number = 0;
        double at = 0;
        double score = 0;
    };

    /// Puts what is in the answer into `m_hits`, in no order, and counts all that was found.
    void findHits(const std::optional<std::string>& match, BrowseOrder order, BrowseCensus& census);
    /// Puts the first `count` hits in their places.
    void sortBeginning(std::int64_t count, BrowseOrder order);
    TextBrowseRow row(const Hit& hit, const std::vector<std::string>& words);

    DocumentStore& m_documents;
    Statement m_matching;
    Statement m_ranking;
    Statement m_reading;
    std::vector<Hit> m_hits; ///< kept for its room: a hundred thousand at a time
};

} // namespace wendlow
