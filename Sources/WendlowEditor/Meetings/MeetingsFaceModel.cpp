#include "Meetings/MeetingsFaceModel.h"

#include "Floor/EditorWords.h"
#include "Floor/RowText.h"
#include "Meetings/MeetingLabels.h"
#include "Say.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

namespace Case = EditorLineEraseCase;

constexpr const char* changedWords =
    sayLater("This line changed since you loaded the meeting, so nothing was deleted. The words "
             "shown now are the current ones — delete again if you still want them gone.");
constexpr const char* stuckWords =
    sayLater("That line moved while it was on screen, and it is still moving. Close the meeting "
             "and open it again, then try once more.");

} // namespace

MeetingsFaceModel::MeetingsFaceModel(MeetingSource& meetings) : m_meetings(meetings) {
    connect(&m_meetings, &MeetingSource::changed, this, &MeetingsFaceModel::take);
    take();
}

QUrl MeetingsFaceModel::page() const {
    return QUrl(QStringLiteral("qrc:/qt/qml/WendlowEditorMeetings/MeetingsFace.qml"));
}

void MeetingsFaceModel::take() {
    List now;
    now.meetings = m_meetings.meetings();
    now.loaded = m_meetings.meetingsLoaded();
    now.error = m_meetings.meetingsError();
    showList(std::move(now));
}

void MeetingsFaceModel::showList(List list) {
    m_list = std::move(list);
    m_rows.show(m_list.meetings.value_or(MeetingSource::Meetings()));
    Q_EMIT changed();
    serveReveal();
}

void MeetingsFaceModel::show(const FaceView& view) {
    const auto* const failed = std::get_if<EditorAnswerStateCase::Failed>(&view.answer->state);
    auto error = failed != nullptr ? std::optional(failed->words) : std::nullopt;
    if (std::exchange(m_storeError, std::move(error)) != m_storeError)
        Q_EMIT changed();
}

void MeetingsFaceModel::appear(EditorAsk& /*ask*/) {
    m_meetings.loadMeetings();
}

void MeetingsFaceModel::leave(EditorAsk& /*ask*/) {
    dismiss();
    m_wanted.clear();
}

bool MeetingsFaceModel::back() {
    const bool wasOpen = m_open.has_value();
    dismiss();
    return wasOpen;
}

void MeetingsFaceModel::reveal(const FoundHit& found, EditorAsk& /*ask*/) {
    const auto* const meeting = std::get_if<SearchDestination::Meeting>(&found.hit.destination);
    if (meeting == nullptr)
        return;
    m_wanted = meeting->id;
    serveReveal();
}

void MeetingsFaceModel::serveReveal() {
    const int row = m_wanted.empty() ? -1 : m_rows.indexOf(m_wanted);
    if (row < 0)
        return;
    m_wanted.clear();
    Q_EMIT revealed(row);
}

bool MeetingsFaceModel::isKnown() const {
    return m_list.loaded || !m_list.meetings || !m_list.meetings->empty();
}

bool MeetingsFaceModel::isFilled() const {
    return !isReading();
}

QString MeetingsFaceModel::countLine() const {
    if (!m_list.meetings)
        return {};
    if (isReading())
        return RowText::plain(say("Reading your meetings…"));
    return isKnown() ? RowText::plain(MeetingLabels::meetings(m_list.meetings->size())) : QString();
}

QString MeetingsFaceModel::emptyWords() const {
    if (!m_list.meetings)
        return m_storeError ? QString() : EditorWords::notWired();
    if (isReading())
        return RowText::plain(say("Reading your meetings…"));
    const bool none = isKnown() && m_list.meetings->empty();
    return none ? RowText::plain(say("No meetings recorded yet.")) : QString();
}

QString MeetingsFaceModel::trouble() const {
    if (m_list.error)
        return RowText::plain(*m_list.error);
    // A store that has given up reads no meetings either.
    const bool gaveUp = m_storeError && !(m_list.meetings && isKnown());
    return gaveUp ? RowText::plain(*m_storeError) : QString();
}

void MeetingsFaceModel::openMeeting(int row) {
    if (m_rows.holds(row))
        open(m_rows.row(row).meeting);
}

void MeetingsFaceModel::open(EditorMeeting meeting) {
    m_open = std::move(meeting);
    m_lines.open({});
    m_readingTranscript = true;
    m_transcriptRead = false;
    m_transcriptError.reset();
    markErasing();
    Q_EMIT openedChanged();
    Q_EMIT transcriptChanged();
    Q_EMIT modalChanged();
    // Runs on by itself, and ends by itself where this goes or another meeting is opened.
    [[maybe_unused]] const auto task = read(m_open->id);
}

QCoro::Task<> MeetingsFaceModel::read(std::string id) {
    const Lifetime::Watch life = m_life.watch();
    const std::uint64_t opening = ++m_opening;
    EditorTranscriptResult result = co_await m_meetings.transcript(std::move(id));
    if (!life.expired() && opening == m_opening)
        takeRead(std::move(result));
}

void MeetingsFaceModel::takeRead(EditorTranscriptResult result) {
    m_readingTranscript = false;
    if (result)
        showTranscript(*std::move(result));
    else
        fail(std::move(result.error()));
    Q_EMIT transcriptChanged();
}

void MeetingsFaceModel::dismiss() {
    if (!m_open)
        return;
    ++m_opening;
    m_open.reset();
    m_readingTranscript = false;
    m_transcriptRead = false;
    m_transcriptError.reset();
    // What is shown stays as it is while it fades.
    Q_EMIT modalChanged();
}

void MeetingsFaceModel::eraseLine(int index) {
    if (!m_open || !m_lines.holds(index) || m_lines.isErasing(m_lines.line(index).id))
        return;
    m_transcriptError.reset();
    Q_EMIT transcriptChanged();
    m_erasures.push_back({.meeting = m_open->id, .line = m_lines.line(index)});
    markErasing();
    if (m_erasures.size() == 1)
        // Runs on by itself, and ends by itself where this goes.
        [[maybe_unused]]
        const auto task = eraseAll();
}

/// A person who has asked for a delete gets it, also where the meeting is closed before its turn.
QCoro::Task<> MeetingsFaceModel::eraseAll() {
    const Lifetime::Watch life = m_life.watch();
    while (!m_erasures.empty()) {
        Erasure next = m_erasures.front();
        EditorLineEraseResult result =
            co_await EditorLineEraser::erase(next.line, next.meeting, m_meetings);
        if (life.expired())
            co_return;
        if (m_open && m_open->id == next.meeting)
            takeErased(next.line.id, std::move(result));
        m_erasures.pop_front();
        markErasing();
    }
}

void MeetingsFaceModel::takeErased(std::int64_t id, EditorLineEraseResult result) {
    if (auto* const erased = std::get_if<Case::Erased>(&result)) {
        if (erased->transcript)
            showTranscript(*std::move(erased->transcript));
        else
            m_lines.remove(id);
        Q_EMIT told(RowText::plain(say("Deleted")));
    } else if (auto* const unchanged = std::get_if<Case::Unchanged>(&result)) {
        showTranscript(std::move(unchanged->transcript));
    } else if (auto* const moved = std::get_if<Case::Changed>(&result)) {
        showTranscript(std::move(moved->transcript));
        fail(say(changedWords));
    } else if (auto* const stuck = std::get_if<Case::Stuck>(&result)) {
        showTranscript(std::move(stuck->transcript));
        fail(say(stuckWords));
    } else if (auto* const failed = std::get_if<Case::Failed>(&result)) {
        fail(std::move(failed->words));
    }
    Q_EMIT transcriptChanged();
}

void MeetingsFaceModel::showTranscript(EditorTranscript fresh) {
    if (std::exchange(m_transcriptRead, true))
        m_lines.refresh(std::move(fresh.lines));
    else
        m_lines.open(std::move(fresh.lines));
}

void MeetingsFaceModel::markErasing() {
    TranscriptLines::Rows ids;
    for (const Erasure& erasure : m_erasures)
        if (m_open && erasure.meeting == m_open->id)
            ids.insert(erasure.line.id);
    m_lines.setErasing(std::move(ids));
}

void MeetingsFaceModel::fail(std::string words) {
    m_transcriptError = std::move(words);
    Q_EMIT told(transcriptError());
}

QString MeetingsFaceModel::openTitle() const {
    return m_open ? RowText::line(MeetingLabels::title(*m_open)) : QString();
}

QString MeetingsFaceModel::openSpan() const {
    return m_open ? RowText::line(MeetingLabels::span(*m_open)) : QString();
}

QString MeetingsFaceModel::openWho() const {
    return m_open ? RowText::line(MeetingLabels::who(m_open->speakers)) : QString();
}

QString MeetingsFaceModel::transcriptWords() const {
    if (isReadingTranscript())
        return RowText::plain(say("Reading the transcript…"));
    return m_transcriptRead && m_lines.rowCount() == 0
               ? RowText::plain(say("No words were recorded for this meeting."))
               : QString();
}

QString MeetingsFaceModel::transcriptError() const {
    return m_transcriptError ? RowText::plain(*m_transcriptError) : QString();
}

} // namespace wendlow

#include "moc_MeetingsFaceModel.cpp"
