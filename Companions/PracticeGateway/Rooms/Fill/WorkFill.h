#pragma once

#include "ActivityLedger.h"
#include "Clock.h"
#include "Fill/FillSize.h"
#include "Fill/WorkPlan.h"
#include "KeepRoom.h"
#include "MeetingRoom.h"
#include "MomentRoom.h"

namespace wendlow {

/// The days of a database that is to be shown: who was where, the moments of it, the meetings. Run
/// within a transaction, on empty tables.
class WorkFill {
public:
    WorkFill(DocumentStore& documents, ActivityLedger& ledger, MomentRoom& moments,
             MeetingRoom& meetings, KeepRoom& keep, const Clock& clock);

    void fill(FillSize size);
    /// One more moment, of now. Also in a database that has been filled.
    void addMoment();

private:
    /// Turns activities that are long enough into meetings.
    void meet(WorkPlan& plan, std::size_t count);
    void meeting(Content& content, const WorkPlan& plan, const Activity& activity);
    void moments(const WorkPlan& plan, std::size_t count);
    void screen(Content& content, const Project& project, const Activity& activity,
                std::int64_t moment);
    void session(Content& content, const Project& project, const Activity& activity,
                 std::int64_t moment);

    DocumentStore& m_documents;
    ActivityLedger& m_ledger;
    MomentRoom& m_moments;
    MeetingRoom& m_meetings;
    KeepRoom& m_keep;
    double m_now;
};

} // namespace wendlow
