#pragma once

#include <expected>
#include <string>

#include "ActivityLedger.h"
#include "Clock.h"
#include "DocumentStore.h"
#include "GatewayResponse.h"
#include "KeepRoom.h"
#include "ReadRequest.h"

namespace wendlow {

/// The figures of days. A day is written as "2026-11-21"; a text that is none is refused, and a day
/// of which nothing is known has figures of 0. Throws `DatabaseError`.
class DayRoom {
public:
    static std::string_view schema() { return {}; } ///< it reads the ledger

    DayRoom(DocumentStore& documents, ActivityLedger& ledger, KeepRoom& keep, Clock clock);

    /// The day's chapters, to be read by a tool.
    GatewayResponse answer(const ReadCase::GetDay& request);
    /// The day as one card; none where nothing is known of it.
    GatewayResponse answer(const ReadCase::DayCard& request);
    /// Of one application, where one is named.
    GatewayResponse answer(const ReadCase::DayPresence& request);
    GatewayResponse answer(const ReadCase::SpanHours& request);
    /// The CPU figures are those of this process.
    GatewayResponse answer(const ReadCase::AllTime& request);
    GatewayResponse answer(const ReadCase::DayLongestChapter& request);
    GatewayResponse answer(const ReadCase::DayStretches& request);
    /// The five chapters with most seconds in them.
    GatewayResponse answer(const ReadCase::DayTopSessions& request);
    GatewayResponse answer(const ReadCase::DayAttention& request);
    GatewayResponse answer(const ReadCase::DayWeb& request);

private:
    DocumentStore& m_documents;
    ActivityLedger& m_ledger;
    KeepRoom& m_keep;
    Clock m_clock;
    const double m_started;
};

} // namespace wendlow
