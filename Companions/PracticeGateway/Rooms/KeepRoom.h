#pragma once

#include <optional>
#include <string_view>

#include "Clock.h"
#include "ControlRequest.h"
#include "DocumentStore.h"
#include "GatewayResponse.h"
#include "ReadRequest.h"
#include "Settings.h"

namespace wendlow {

/// What is kept on the disk: the two switches for pictures, the slow deletion of pictures that are
/// no longer wanted, and the deletion of everything. Throws `DatabaseError`.
class KeepRoom {
public:
    static std::string_view schema();

    KeepRoom(DocumentStore& documents, Clock clock);

    GatewayResponse answer(const ReadCase::FrameKeepState& request);
    /// Sizes are worked out first, which takes a while after the start and after a deletion has
    /// begun; they are left out until then.
    GatewayResponse answer(const ReadCase::FrameStats& request);
    GatewayResponse answer(const ReadCase::ReelKeepState& request);
    GatewayResponse answer(const ReadCase::ReelStats& request);
    GatewayResponse answer(const ReadCase::DiskUsed& request);
    /// Off: the pictures go day by day, the oldest day first, two seconds a day, or faster so that
    /// the last goes after a minute. On: those that are still there stay.
    GatewayResponse answer(const ControlCase::SetFrameKeep& request);
    /// Off: the pictures of all meetings are gone at once.
    GatewayResponse answer(const ControlCase::SetReelKeep& request);
    /// One memory, moment or meeting.
    GatewayResponse answer(const ControlCase::Forget& request);
    /// All memories, moments, meetings and figures. What was set stays as it was set.
    GatewayResponse answer(const ControlCase::DeleteAll& request);

    /// Deletes the pictures of those days whose time has come. To be called before pictures are
    /// looked at.
    void purgeWhatIsDue();
    DiskUsed diskUsed();

    /// The pictures of this day withstand deletion, as those of a damaged file would.
    void lockDay(std::string_view day);

private:
    bool isCounted();
    void startPurge();

    DocumentStore& m_documents;
    Settings m_settings;
    Clock m_clock;
    std::optional<double> m_countedAt; ///< nothing: nobody has asked yet
};

} // namespace wendlow
