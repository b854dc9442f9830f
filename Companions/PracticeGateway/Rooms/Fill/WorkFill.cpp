#include "Fill/WorkFill.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "LocalTime.h"

namespace wendlow {
namespace {

struct MeetingProgram {
    std::string_view app;
    std::string_view name; ///< in a meeting's id
};
constexpr MeetingProgram meetingPrograms[] = {
    {"zoom.us", "zoom"}, {"Google Meet", "meet"}, {"Microsoft Teams", "teams"}};

constexpr std::string_view meetingTitles[] = {
    "{thing}: what next",        "{project}, every {weekday}", "{person} and {person}",
    "{part} before the release", "Looking back at {thing}",    "Who takes {part}?",
    "“{thing}” · a first look"};

constexpr std::string_view spokenLines[] = {
    "Can everybody hear me?",
    "I looked at {thing} yesterday, and it is {part} again.",
    "How long would that take?",
    "{count} hours, if {part} stays as it is.",
    "Then let us wait until {weekday}.",
    "I would rather keep {part}, since {reason}.",
    "Did {person} say anything about {thing}?",
    "Not to me. I will ask.",
    "So {thing} first, and {part} after that.",
    "Yes.",
    "Let me share my screen. Do you see {tool}?",
    "We had that in spring: {reason}.",
    "{person} wrote it down, it is in the notes about {thing}.",
    "Good. Who does it?",
    "I do, by {weekday}.",
    "One more thing: {thing} is slow in {project}, {count} seconds on my machine.",
    "That is with {tool}. Without it I see two.",
    "نعم، هذا واضح.",
    "Then we are done 🎉",
    "Thank you all, see you on {weekday}."};

struct Tool {
    std::string_view bundleMark; ///< behind the transcript prefix
    std::string_view name;
};
constexpr Tool tools[] = {
    {"claude", "claude-code"}, {"codex", "codex"}, {"cursor", "cursor"}, {"opencode", "opencode"}};

constexpr std::string_view files[] = {
    "Sources/import/reader.py", "Sources/search/index.py", "Tests/reader_tests.py",
    "docs/import.md",           "schema/002_names.sql",    "Makefile",
    "web/src/map/layer.ts",     "web/src/reader.py",       "notes/2026/plan.md"};

std::string bundleOf(std::string_view app) {
    std::string name(app);
    std::ranges::replace(name, ' ', '-');
    return fmt::format("org.example.{}", name);
}

std::string uuid(Content& content) {
    std::string text;
    for (const int digits : {8, 4, 4, 4, 12}) {
        text += text.empty() ? "" : "-";
        for (int digit = 0; digit < digits; ++digit)
            text += fmt::format("{:x}", content.below(16));
    }
    return text;
}

/// `count` of them, evenly spread.
std::vector<std::size_t> spread(std::size_t all, std::size_t count) {
    std::vector<std::size_t> places(std::min(count, all));
    for (std::size_t number = 0; number < places.size(); ++number)
        places[number] = (number * 2 + 1) * all / (places.size() * 2);
    return places;
}

} // namespace

WorkFill::WorkFill(DocumentStore& documents, ActivityLedger& ledger, MomentRoom& moments,
                   MeetingRoom& meetings, KeepRoom& keep, const Clock& clock)
    : m_documents(documents), m_ledger(ledger), m_moments(moments), m_meetings(meetings),
      m_keep(keep), m_now(secondsOf(clock())) {}

void WorkFill::fill(FillSize size) {
    const bool power = size == FillSize::power;
    WorkPlan plan = WorkPlan::of(m_now, size == FillSize::day ? 7 : 3 * 365);
    meet(plan, power ? 500 : 6);
    for (const WorkPlan::PlannedChapter& planned : plan.chapters)
        m_ledger.put(planned.chapter);
    for (const Activity& activity : plan.activities)
        m_ledger.put(activity);
    constexpr std::size_t counts[] = {150, 20'000, 50'000};
    moments(plan, counts[static_cast<std::size_t>(size)]);
    if (!plan.activities.empty())
        m_keep.lockDay(plan.activities[plan.activities.size() / 3].day);
}

void WorkFill::meet(WorkPlan& plan, std::size_t count) {
    constexpr std::int64_t shortest = 480;
    std::vector<Activity*> longEnough;
    for (Activity& activity : plan.activities)
        if (activity.attended && activity.seconds() >= shortest)
            longEnough.push_back(&activity);
    Content content("meetings");
    for (const std::size_t place : spread(longEnough.size(), count)) {
        Activity& activity = *longEnough[place];
        activity.app = content.pick(meetingPrograms).app;
        activity.isBrowser = false;
        activity.site.reset();
        activity.attention = Attention::humans;
        meeting(content, plan, activity);
    }
}

void WorkFill::meeting(Content& content, const WorkPlan& plan, const Activity& activity) {
    const Project& project = plan.projectOf(activity);
    const auto program =
        std::ranges::find(meetingPrograms, activity.app, &MeetingProgram::app)->name;
    MeetingRecord meeting{.id = fmt::format("meeting:{}:{:.0f}", program, activity.start),
                          .app = std::string(program),
                          .start = activity.start,
                          .end = activity.end,
                          .reelBytes = activity.seconds() *
                                       static_cast<std::int64_t>(30'000 + content.below(8'000)),
                          .lines = {}};
    if (!content.oneIn(6))
        meeting.title = content.filled(content.pick(meetingTitles));
    std::vector<std::string> speakers = {"You"};
    if (content.oneIn(12))
        speakers.clear();
    else
        for (std::uint64_t more = 1 + content.below(4); more > 0; --more)
            speakers.emplace_back(content.person());
    if (speakers.empty() || content.oneIn(8))
        speakers.emplace_back();
    constexpr double pause = 14;
    for (double at = activity.start; at < activity.end && meeting.lines.size() < 200;
         at += pause + static_cast<double>(content.below(20)))
        meeting.lines.push_back({content.pick(std::span<const std::string>(speakers)), at,
                                 content.filled(content.pick(spokenLines))});
    m_meetings.put(meeting, project.scope);
}

void WorkFill::moments(const WorkPlan& plan, std::size_t count) {
    Content content("moments");
    std::int64_t moment = 0;
    const auto places = spread(plan.activities.size(), count);
    // Where there are fewer activities than moments, each in turn gives one more.
    for (std::size_t number = 0; number < count; ++number) {
        const Activity& activity = plan.activities[places[number * places.size() / count]];
        if (activity.attention == Attention::ai && content.oneIn(2))
            session(content, plan.projectOf(activity), activity, ++moment);
        else
            screen(content, plan.projectOf(activity), activity, ++moment);
    }
}

void WorkFill::addMoment() {
    const std::int64_t moment = m_moments.last() + 1;
    Content content(fmt::format("moment {}", moment));
    Activity activity{.day = LocalTime::day(m_now),
                      .start = m_now,
                      .end = m_now,
                      .app = "Terminal",
                      .isBrowser = false,
                      .attention = Attention::work,
                      .chapter = 0};
    if (content.oneIn(4))
        session(content, content.project(), activity, moment);
    else
        screen(content, content.project(), activity, moment);
}

void WorkFill::screen(Content& content, const Project& project, const Activity& activity,
                      std::int64_t moment) {
    const auto length = static_cast<std::uint64_t>(activity.seconds());
    Document document{.kind = DocumentKind::moment,
                      .id = fmt::format("{}", moment),
                      .type = "moment",
                      .scope = std::string(project.scope),
                      .at = activity.start + static_cast<double>(content.below(length + 1)),
                      .title = content.filled("{thing}, {part}"),
                      .body = content.prose(project.name, 2 + content.below(4)),
                      .app = bundleOf(activity.app),
                      .framed = true};
    const std::string window =
        activity.site ? fmt::format("{} – {}", document.title, *activity.site) : document.title;
    m_moments.put({.moment = moment,
                   .number = m_documents.put(document),
                   .day = activity.day,
                   .chapter = activity.chapter,
                   .app = activity.app,
                   .window = window,
                   .site = activity.site,
                   .bytes = static_cast<std::int64_t>(90'000 + content.below(160'000))});
}

void WorkFill::session(Content& content, const Project& project, const Activity& activity,
                       std::int64_t moment) {
    const Tool& tool = content.pick(tools);
    Document document{.kind = DocumentKind::moment,
                      .id = fmt::format("{}", moment),
                      .type = "moment",
                      .scope = std::string(project.scope),
                      .at = activity.end,
                      .title = content.filled("{thing} and {part}"),
                      .body = content.prose(project.name, 4 + content.below(5)),
                      .app = fmt::format("one.tarnbeck.wendlow.transcript.{}", tool.bundleMark),
                      .sessionTool = std::string(tool.name),
                      .session = uuid(content)};
    // A session that nothing has named yet goes by its id.
    const bool named = !content.oneIn(9);
    if (!named)
        document.title = *document.session;
    if (!content.oneIn(5))
        document.abstract = content.prose(project.name, 2);
    for (std::uint64_t count = content.below(5); count > 0; --count)
        document.files.push_back(fmt::format("{}/{}", project.folder, content.pick(files)));
    if (!document.files.empty())
        document.fileCount =
            static_cast<std::int64_t>(document.files.size() + content.below(3) * content.below(9));
    m_moments.put({.moment = moment,
                   .number = m_documents.put(document),
                   .day = activity.day,
                   .chapter = activity.chapter,
                   .app = activity.app,
                   .window = std::string(tool.name),
                   .titleSource = named ? "model" : "session id",
                   .bytes = 0,
                   .seconds = activity.seconds(),
                   .turns = static_cast<std::int64_t>(2 + content.below(40))});
}

} // namespace wendlow
