#pragma once

#include "Floor/FaceModel.h"
#include "Meetings/EditorLineEraser.h"
#include "Meetings/MeetingRows.h"
#include "Meetings/TranscriptLines.h"
#include "Store/Lifetime.h"

#include <deque>

namespace wendlow {

/// The meetings, and the one that is open as a transcript, whose lines can be deleted. Deletes run
/// one after the other, and go on where their meeting is closed meanwhile; what they come to is
/// shown only where it is open. UI thread; may go while answers are under way. The source must
/// outlive it.
class MeetingsFaceModel final : public wendlow::FaceModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")
    Q_PROPERTY(wendlow::MeetingRows* rows READ rows CONSTANT)
    /// How many meetings there are, or that they are being read.
    Q_PROPERTY(QString countLine READ countLine NOTIFY changed)
    /// In place of rows; empty where there are some, or where `trouble` says why not.
    Q_PROPERTY(QString emptyWords READ emptyWords NOTIFY changed)
    Q_PROPERTY(bool reading READ isReading NOTIFY changed)
    /// Why the meetings could not be read; empty for nothing.
    Q_PROPERTY(QString trouble READ trouble NOTIFY changed)

    Q_PROPERTY(QString openTitle READ openTitle NOTIFY openedChanged)
    Q_PROPERTY(QString openSpan READ openSpan NOTIFY openedChanged)
    Q_PROPERTY(QString openWho READ openWho NOTIFY openedChanged)
    Q_PROPERTY(wendlow::TranscriptLines* lines READ lines CONSTANT)
    /// In place of lines; empty where there are some, or where `transcriptError` says why not.
    Q_PROPERTY(QString transcriptWords READ transcriptWords NOTIFY transcriptChanged)
    Q_PROPERTY(bool readingTranscript READ isReadingTranscript NOTIFY transcriptChanged)
    /// What went wrong with the transcript or with a delete; empty for nothing.
    Q_PROPERTY(QString transcriptError READ transcriptError NOTIFY transcriptChanged)

public:
    explicit MeetingsFaceModel(MeetingSource& meetings);
    ~MeetingsFaceModel() override { m_life.end(); }

    EditorFace face() const override { return EditorFace::meetings; }
    QUrl page() const override;
    bool isModal() const override { return m_open.has_value(); }
    void show(const FaceView& view) override;
    void appear(EditorAsk& ask) override;
    void leave(EditorAsk& ask) override;
    bool back() override;
    /// Brings the meeting that a search found into sight.
    void reveal(const FoundHit& found, EditorAsk& ask) override;
    std::optional<std::int64_t> railCount() const override { return m_meetings.meetingCount(); }
    bool isFilled() const override;
    FacePictures pictures() override;

    Q_INVOKABLE void openMeeting(int row);
    Q_INVOKABLE void dismiss();
    /// Deletes the line, for good and without a question. Nothing happens where that is under way.
    Q_INVOKABLE void eraseLine(int index);

    MeetingRows* rows() { return &m_rows; }
    QString countLine() const;
    QString emptyWords() const;
    bool isReading() const { return !isKnown() && trouble().isEmpty(); }
    QString trouble() const;
    QString openTitle() const;
    QString openSpan() const;
    QString openWho() const;
    TranscriptLines* lines() { return &m_lines; }
    QString transcriptWords() const;
    bool isReadingTranscript() const { return m_readingTranscript && !m_transcriptRead; }
    QString transcriptError() const;

Q_SIGNALS:
    void changed();
    void openedChanged();
    void transcriptChanged();
    /// A row is to come into sight.
    void revealed(int row);
    /// Words for whoever does not see the window.
    void told(const QString& words);

private:
    /// What the source holds, as it is shown.
    struct List {
        std::optional<MeetingSource::Meetings> meetings;
        bool loaded = false;
        std::optional<std::string> error;
    };
    /// A line that is to be deleted, as it was when that was asked for.
    struct Erasure {
        std::string meeting;
        EditorTranscript::Line line;
    };

    void take();
    void showList(List list);
    /// The list has been read at least once, or there is none in this world.
    bool isKnown() const;
    void serveReveal();
    void open(EditorMeeting meeting);
    QCoro::Task<> read(std::string id);
    void takeRead(EditorTranscriptResult result);
    QCoro::Task<> eraseAll();
    void takeErased(std::int64_t id, EditorLineEraseResult result);
    void showTranscript(EditorTranscript fresh);
    void markErasing();
    void fail(std::string words);

    MeetingSource& m_meetings;
    List m_list;
    MeetingRows m_rows{nullptr};
    std::optional<std::string> m_storeError; ///< why nothing at all can be read
    std::string m_wanted;                    ///< the id of a meeting that is to come into sight

    std::optional<EditorMeeting> m_open;
    TranscriptLines m_lines{nullptr};
    std::uint64_t m_opening = 0; ///< what was read for another one is dropped
    bool m_readingTranscript = false;
    bool m_transcriptRead = false;
    std::optional<std::string> m_transcriptError;
    /// The first is under way.
    std::deque<Erasure> m_erasures;
    Lifetime m_life;
};

} // namespace wendlow
