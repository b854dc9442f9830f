#include "Live/LiveMeetings.h"

#include "Live/AnswerWords.h"
#include "Live/MeetingList.h"

#include <utility>

namespace wendlow {

namespace {

using Lane = EditorLink::Lane;

/// Of tens of thousands of lines none is copied.
EditorTranscript transcriptOf(MeetingTranscriptAnswer wire) {
    EditorTranscript made{.id = std::move(wire.meeting),
                          .title = std::move(wire.title),
                          .titleSource = std::move(wire.titleSource),
                          .who = std::move(wire.who)};
    made.lines.reserve(wire.lines.size());
    for (TranscriptLineRow& row : wire.lines)
        made.lines.push_back({.id = row.rowid,
                              .speaker = std::move(row.speaker),
                              .text = std::move(row.text),
                              .witness = std::move(row.witness),
                              .at = row.at});
    return made;
}

} // namespace

LiveMeetings::LiveMeetings(EditorLink& link, LiveTell tell, LoadAhead loadAhead)
    : m_link(link), m_tell(std::move(tell)), m_loadAhead(std::move(loadAhead)) {}

void LiveMeetings::loadMeetings() {
    if (m_loaded)
        return;
    if (m_loadAhead())
        m_wished = true;
    else if (!m_reading)
        // Runs on by itself, and ends by itself where this goes.
        [[maybe_unused]]
        const auto task = read();
}

void LiveMeetings::beginLoad() {
    m_loaded = false;
    m_loadBegan = m_link.now();
}

QCoro::Task<> LiveMeetings::finishLoad(bool wanted) {
    const bool wished = std::exchange(m_wished, false);
    if ((wanted || wished) && !m_loaded && !m_reading)
        co_await read();
}

QCoro::Task<> LiveMeetings::read() {
    const Lifetime::Watch life = m_life.watch();
    m_reading = true;
    const ReadRequest request = ReadCase::MeetingList();
    EditorLink::Reply reply = co_await m_link.send(request, Lane::later);
    if (life.expired())
        co_return;
    m_reading = false;
    const bool isOld = reply.leg.sent < m_loadBegan;
    take(std::move(reply));
    if (isOld) {
        // The link serves one at a time, so that the load is still ahead.
        m_loaded = false;
        m_wished = true;
    }
    m_tell(EditorChange::meetings);
}

void LiveMeetings::take(EditorLink::Reply reply) {
    const auto text = expect<AnswerCase::Text>(std::move(reply.response));
    m_loaded = text.has_value();
    if (text) {
        m_list = MeetingList::parse(text->_0);
        m_count = std::ssize(*m_list);
        m_error.reset();
    } else {
        m_error = AnswerWords::of(text.error(), AnswerWords::Question::meetingList);
    }
}

QCoro::Task<EditorTranscriptResult> LiveMeetings::transcript(std::string id) {
    const ReadRequest request = ReadCase::MeetingTranscript{.id = id};
    EditorLink::Reply reply = co_await m_link.send(request, Lane::now);
    auto words = expect<AnswerCase::Transcript>(std::move(reply.response));
    if (words)
        co_return transcriptOf(std::move(words->_0));
    // A meeting in which nobody spoke is no error.
    if (words.error().kind == AnswerRefusal::Kind::failure &&
        words.error().words.starts_with("no transcript"))
        co_return EditorTranscript{.id = std::move(id)};
    co_return std::unexpected(AnswerWords::of(words.error()));
}

QCoro::Task<EditorLineDelete> LiveMeetings::deleteLine(std::string meeting, std::int64_t rowid,
                                                       std::string witness) {
    namespace Case = EditorLineDeleteCase;
    const Lifetime::Watch life = m_life.watch();
    const ControlRequest request = ControlCase::DeleteUtterance{
        .meeting = meeting, .rowid = rowid, .witness = std::move(witness)};
    EditorLink::Reply reply = co_await m_link.send(request, Lane::now);
    const auto answer = expect<AnswerCase::LineDelete>(std::move(reply.response));
    if (!answer)
        co_return Case::Failed{AnswerWords::of(answer.error(), AnswerWords::Question::removal,
                                               AnswerWords::MissingDoor::named)};
    if (answer->_0 != LineDeleteOutcome::deleted)
        co_return Case::Refused{};
    if (!life.expired())
        m_tell(EditorChange::generation);
    // It is gone; that it cannot be read again, twice, does not undo that.
    std::optional<EditorTranscript> words;
    for (int attempt = 0; attempt < 2 && !words && !life.expired(); ++attempt)
        if (EditorTranscriptResult now = co_await transcript(meeting))
            words = *std::move(now);
    // The list counts lines, and one has gone. Behind the transcript, which is waited for.
    if (!life.expired())
        readAgain();
    co_return Case::Deleted{std::move(words)};
}

/// The link serves one at a time, so that a list that is still to come has been asked for behind a
/// delete, and one of a load comes with that.
void LiveMeetings::readAgain() {
    if (!m_reading && m_loaded && !m_loadAhead())
        // Runs on by itself, and ends by itself where this goes.
        [[maybe_unused]]
        const auto task = read();
}

} // namespace wendlow

#include "moc_LiveMeetings.cpp"
