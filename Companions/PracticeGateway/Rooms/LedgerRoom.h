#pragma once

#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "ActivityLedger.h"
#include "Clock.h"
#include "GatewayResponse.h"
#include "KeepRoom.h"
#include "ReadRequest.h"

namespace wendlow {

/// What tools ask about hours and storage, answered in words. A span is "today", "yesterday",
/// "week", "month", "all", a day, or two days with ".." between them. Throws `DatabaseError`.
class LedgerRoom {
public:
    static std::string_view schema() { return {}; } ///< it reads the ledger

    LedgerRoom(ActivityLedger& ledger, KeepRoom& keep, DocumentStore& documents, Clock clock);

    /// Hours in a span, by application, or by "sites" or "days" as `mode` says; of one entity alone
    /// where one is named.
    GatewayResponse answer(const ReadCase::Tally& request);
    /// What each day of the last `days`, a week without a number, added to the disk.
    GatewayResponse answer(const ReadCase::StorageStats& request);
    /// Nothing is counted here of what is asked, and the answer says so.
    GatewayResponse answer(const ReadCase::RecallStats& request);
    /// How much of a span, or of all, was recorded.
    GatewayResponse answer(const ReadCase::Coverage& request);

private:
    using Span = std::pair<std::string, std::string>;

    /// The first and the last day, or the sentence that refuses.
    std::expected<Span, std::string> spanOf(const std::string& text);

    ActivityLedger& m_ledger;
    KeepRoom& m_keep;
    DocumentStore& m_documents;
    Clock m_clock;
};

} // namespace wendlow
