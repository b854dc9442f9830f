#include "Meetings/MeetingsFaceModel.h"

#include <utility>

namespace wendlow {

namespace {

using World = FacePicture::World;
using Widths = FacePicture::Widths;

namespace Case = EditorLineEraseCase;

constexpr const char* notRunning = "Wendlow isn't running — start it to access your memory.";

EditorMeeting meeting(const char* title, const char* day, const char* from, const char* to,
                      const char* duration, std::int64_t lines,
                      std::vector<std::string> speakers = {"Mara", "Jonas", "Priya"}) {
    EditorMeeting made{.id = std::string("meeting:zoom:") + day + from};
    if (*title != '\0')
        made.title = title;
    made.day = day;
    made.from = from;
    made.to = to;
    made.duration = duration;
    made.speakers = std::move(speakers);
    made.lines = lines;
    return made;
}

MeetingSource::Meetings meetings() {
    return {
        meeting("Atlas weekly", "Tue Nov 17", "10:02", "10:47", "45m", 214),
        meeting("Proofs of the spring list", "Mon Nov 16", "14:00", "14:32", "32m", 151),
        meeting("", "Fri Nov 13", "16:10", "16:16", "6m", 22, {}),
        meeting(
            "Garden shed, with everybody who ever promised to help with its roof or its door",
            "Thu Nov 12", "18:30", "19:45", "1h 15m", 402,
            {"Mara", "Jonas", "Priya", "Wilhelmina Oderbruch", "Lars", "Tove", "Ines", "Ahmed"}),
        meeting("Atlas weekly", "Tue Nov 10", "10:00", "10:44", "44m", 198),
        meeting("Letters to the press", "Mon Nov 9", "9:30", "9:58", "28m", 97, {"Mara", "Ines"}),
    };
}

EditorTranscript transcript() {
    const std::pair<const char*, const char*> said[] = {
        {"Mara", "Before the index, the copies. Where did we leave the second one?"},
        {"Jonas",
         "On the studio drive. It is written each night at two, and read back at half past."},
        {"Priya", "Read back by whom? Last month it was read by nobody."},
        {"Jonas",
         "By the restore script now. It counts the notes, compares, and only then lets the "
         "old copy go."},
        {"Mara", "Then the monthly rehearsal can stay on my machine. I would rather find out here "
                 "than in March."},
        {"Priya",
         "Can we write that down as a rule? Never remove a copy before the new one has been "
         "read back."},
        {"Wilhelmina",
         "Yes. At the studio, not only at Atlas; the press site has the same trouble."},
        {"Jonas", "One more thing. The photographs triple the time it takes."},
        {"Mara", "Leave them out. They are kept twice already, and nobody restores a photograph at "
                 "two in the morning."},
        {"Priya", "Good. Then I will label each copy with the schema it was made under, so that a "
                  "file from March can say so."},
        {"Jonas", "And the drive travels encrypted. I take it home on Fridays."},
        {"Mara", "Then three things for next week: the rule, the label, and one rehearsal with the "
                 "clock running."},
        {"Priya", "I will take the label."},
    };
    EditorTranscript made;
    for (const auto& [speaker, text] : said)
        made.lines.push_back(
            {.id = std::ssize(made.lines), .speaker = speaker, .text = text, .witness = {}});
    return made;
}

} // namespace

/// The made-up worlds have no meetings, so that what a daemon may have is put in place.
FacePictures MeetingsFaceModel::pictures() {
    const auto list = [this](MeetingSource::Meetings all, std::optional<std::string> error = {}) {
        return [this, all = std::move(all), error = std::move(error)] {
            List held;
            held.meetings = all;
            held.loaded = true;
            held.error = error;
            showList(std::move(held));
        };
    };
    // What the world has answered is forgotten.
    const auto read = [this](EditorTranscriptResult result) {
        return [this, result = std::move(result)] {
            open(m_rows.row(0).meeting);
            m_transcriptError.reset();
            takeRead(result);
        };
    };
    const auto erased = [this](const EditorLineEraseResult& result) {
        return [this, result] { takeErased(4, result); };
    };
    const auto close = [this] { dismiss(); };

    FacePictures pictures;
    pictures.push_back({.name = "meetings-pending", .world = World::silent});
    pictures.push_back({.name = "meeting-pending",
                        .world = World::silent,
                        .stand =
                            [this, show = list(meetings())] {
                                show();
                                open(m_rows.row(0).meeting);
                            },
                        .leave = close});
    pictures.push_back({.name = "meetings-failed", .world = World::refusing});
    pictures.push_back({.name = "blank", .world = World::empty});
    pictures.push_back({.name = "meetings-empty", .world = World::empty, .stand = list({})});
    pictures.push_back({.name = "meetings-troubled", .stand = list(meetings(), notRunning)});
    pictures.push_back({.name = "meetings", .widths = Widths::every, .stand = list(meetings())});
    pictures.push_back({.name = "meeting", .widths = Widths::every, .stand = read(transcript())});
    pictures.push_back({.name = "meeting-erasing",
                        .stand = [this] { m_lines.setErasing({4}); },
                        .leave = [this] { m_lines.setErasing({}); }});
    pictures.push_back({.name = "meeting-changed", .stand = erased(Case::Changed{transcript()})});
    pictures.push_back({.name = "meeting-stuck", .stand = erased(Case::Stuck{transcript()})});
    pictures.push_back(
        {.name = "meeting-not-deleted", .stand = erased(Case::Failed{notRunning}), .leave = close});
    pictures.push_back(
        {.name = "meeting-silent", .stand = read(EditorTranscript()), .leave = close});
    pictures.push_back({.name = "meeting-failed",
                        .stand = read(std::unexpected("The transcript is locked.")),
                        .leave = close});
    return pictures;
}

} // namespace wendlow
