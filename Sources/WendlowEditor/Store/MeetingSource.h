#pragma once

#include "Model/EditorMeeting.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <QCoroTask>
#include <QObject>

namespace wendlow {

/// The meetings and what was said in them. UI thread; a caller that awaits checks afterwards that
/// it still lives.
class MeetingSource : public QObject {
    Q_OBJECT

public:
    using Meetings = std::vector<EditorMeeting>;

    /// Nothing until it is known.
    virtual std::optional<std::int64_t> meetingCount() const = 0;
    /// Nothing in a world that has no meetings at all.
    virtual const std::optional<Meetings>& meetings() const = 0;
    virtual bool meetingsLoaded() const = 0;
    virtual std::optional<std::string> meetingsError() const = 0;
    /// Reads them, unless that is done or under way. While the whole store is read, they come with
    /// that, or after it where it fails.
    virtual void loadMeetings() = 0;
    virtual QCoro::Task<EditorTranscriptResult> transcript(std::string id) = 0;
    virtual QCoro::Task<EditorLineDelete> deleteLine(std::string meeting, std::int64_t rowid,
                                                     std::string witness) = 0;

Q_SIGNALS:
    void changed();
};

} // namespace wendlow
