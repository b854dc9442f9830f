#pragma once

#include "Live/EditorLink.h"
#include "Live/LiveTell.h"

namespace wendlow {

/// The daemon's meetings. May go while its answers are under way; the link must outlive it.
class LiveMeetings final : public MeetingSource {
    Q_OBJECT

public:
    /// Whether a full load is to come whose baseline has not been read: the list is long and slow,
    /// and would stand on the link before that.
    using LoadAhead = std::function<bool()>;

    LiveMeetings(EditorLink& link, LiveTell tell, LoadAhead loadAhead);
    ~LiveMeetings() override { m_life.end(); }

    std::optional<std::int64_t> meetingCount() const override { return m_count; }
    const std::optional<Meetings>& meetings() const override { return m_list; }
    bool meetingsLoaded() const override { return m_loaded; }
    std::optional<std::string> meetingsError() const override { return m_error; }
    void loadMeetings() override;
    QCoro::Task<EditorTranscriptResult> transcript(std::string id) override;
    QCoro::Task<EditorLineDelete> deleteLine(std::string meeting, std::int64_t rowid,
                                             std::string witness) override;

    /// A full load begins: what was sent for before it counts as old.
    void beginLoad();
    /// Its baseline has been read, well or not: the list is read where the load or somebody who
    /// wished for it meanwhile wants it, and has not got it yet.
    QCoro::Task<> finishLoad(bool wanted);
    /// Reads what has been read before once more; what is shown stays meanwhile.
    void readAgain();

private:
    QCoro::Task<> read();
    void take(EditorLink::Reply reply);

    EditorLink& m_link;
    const LiveTell m_tell;
    const LoadAhead m_loadAhead;
    std::optional<Meetings> m_list = Meetings();
    std::optional<std::int64_t> m_count;
    std::optional<std::string> m_error;
    bool m_loaded = false;
    bool m_reading = false;
    bool m_wished = false; ///< for the load that is ahead
    LinkLeg::Instant m_loadBegan;
    Lifetime m_life;
};

} // namespace wendlow
