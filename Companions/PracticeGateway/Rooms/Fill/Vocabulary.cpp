#include "Fill/Vocabulary.h"

#include <array>

namespace wendlow::Vocabulary {
namespace {

constexpr Project projectList[] = {
    {"/studio/atlas", "atlas", "~/Projects/atlas"},
    {"/studio/press", "press", "~/Projects/press"},
    {"/studio/atlas/import", "the atlas import", "~/Projects/atlas/import"},
    {"/studio", "the studio", "~/Projects"},
    {"/studio/letters", "letters", "~/Projects/letters"},
    {"/studio/atlas/search", "the atlas search", "~/Projects/atlas/search"},
    {"/studio/archive", "the archive", "~/Projects/archive"},
    {"/", "this machine", "~"},
    {"/studio/kestrel", "kestrel", "~/Projects/kestrel"},
    {"/home/garden", "the garden plan", "~/Documents/garden"},
    {"/studio/press/print", "the print sheets", "~/Projects/press/print"},
    {"/studio/workshop", "workshop", "~/Projects/workshop"},
    {"/home", "the house", "~/Documents/house"},
    {"/studio/backup", "the backups", "~/Projects/backup"},
    {"/studio/atlas/maps", "the atlas maps", "~/Projects/atlas/maps"},
    {"/clients/harbour", "harbour", "~/Clients/harbour"},
    {"/clients/harbour/billing", "the harbour billing", "~/Clients/harbour/billing"},
    {"/clients/lindgren", "lindgren", "~/Clients/lindgren"},
    {"/home/reading", "the reading list", "~/Documents/reading"},
    {"/studio/archive/scans", "the scans", "~/Projects/archive/scans"},
};

using Words = std::string_view;

constexpr Words people[] = {"Mara",  "Jonas", "Priya", "Tomas", "Ines",   "Olek",
                            "Hanna", "Ruben", "Yusuf", "Clara", "Anselm", "Noor"};
constexpr Words things[] = {
    "the import",         "the index",           "the nightly backup", "the schema",
    "the release branch", "the parser",          "the search page",    "the settings pane",
    "the export",         "the cache",           "the migration",      "the test suite",
    "the build",          "the login page",      "the map layer",      "the caption editor",
    "the queue",          "the thumbnail store", "the licence check",  "the date picker",
    "the error report",   "the log rotation",    "the print sheet",    "the reading view",
    "the address book",   "the time zone table", "the upload",         "the colour profile",
    "the invoice run",    "the font loader",     "the undo stack",     "the sync"};
constexpr Words parts[] = {
    "the second pass",   "the header row",   "the empty case",     "the retry",
    "the lock file",     "the old flag",     "the worker pool",    "the last page",
    "the error path",    "the side panel",   "the checksum",       "the warm start",
    "the fallback font", "the token budget", "the staging server", "the shutdown",
    "the first frame",   "the quota",        "the rounding",       "the pinned version"};
constexpr Words tools[] = {"SQLite",  "ripgrep",    "Docker",       "Ansible",
                           "CMake",   "Postgres",   "nginx",        "systemd",
                           "Python",  "Rust",       "the debugger", "the profiler",
                           "Grafana", "the linter", "git bisect",   "a spreadsheet"};
constexpr Words reasons[] = {"a rebuild that fails halfway used to leave nothing to return to",
                             "two people had changed the same line and neither had seen it",
                             "it took forty seconds on the slow machine and nobody waits that long",
                             "the old one drifted within a week",
                             "the customer reads the log before we do",
                             "a date without a zone is a guess",
                             "the tests passed and the program did not start",
                             "it could not say why it had refused the file",
                             "a copy that nobody has opened is a hope",
                             "names with accents were not found",
                             "the disk filled on a Sunday",
                             "we had promised it in spring",
                             "it is read a hundred times for every time it is written",
                             "the error said only that something went wrong",
                             "the cheaper way costs an hour every week",
                             "nobody could tell which of the two was meant"};
constexpr Words weekdays[] = {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday"};

constexpr Words sentenceList[] = {
    "{thing} and {part} were done together, since {reason}.",
    "{person} looked at {thing} on {weekday} and found that {part} was the cause.",
    "In {project} this holds for {thing} only; {part} stays as it is.",
    "Tried with {tool} first, which was slower by a factor of {count}.",
    "{count} of the files went through, the others were stopped at {part}.",
    "Before that, {person} had wanted {thing} to wait for {part}.",
    "It was measured with {tool}: {count} milliseconds in the middle, twice that at worst.",
    "The reason is plain: {reason}.",
    "If {thing} is ever replaced, look at {part} first.",
    "{person} keeps the notes about {part}; ask before changing it.",
    "There is a test for {part}, and it failed before the change.",
    "See what {person} wrote about {thing} in {project}.",
    "Until {weekday} both ways are there, after that {part} goes.",
    "{tool} shows it at once, the log shows it {count} lines later.",
    "Nothing else in {project} depends on {part}.",
    "We agreed to look again when {thing} has run for {count} days."};

/// Literals would each want a type of their own beside these.
using Titles = std::vector<Words>;

const std::array<MemoryType, 12>& types() {
    static const std::array<MemoryType, 12> list = {
        MemoryType{"note", 408,
                   Titles{"{person} on {thing}", "{thing} after {part}",
                          "What {weekday} showed about {thing}", "{thing} in {project}: {part}",
                          "Where {part} comes from", "{tool} and {thing}"}},
        {"fact", 221,
         Titles{"{thing} needs {part}", "{thing} takes {count} seconds with {tool}",
                "{project} has {count} places that touch {part}", "{part} is older than {thing}",
                "{person} wrote {part}"}},
        {"decision", 142,
         Titles{"{thing} runs before {part}", "Keep {part} out of {thing}",
                "{thing} is made with {tool}, not by hand", "No release while {part} is open",
                "{person} decides about {thing}"}},
        {"preference", 58,
         Titles{"Say {count} words, not a page, about {thing}",
                "Show {part} before touching {thing}", "{tool} over anything newer for {thing}"}},
        {"procedure", 43,
         Titles{"Move {thing} to a new machine", "Put {part} back",
                "Close {project} for the holidays", "Take {thing} apart without losing {part}"}},
        {"ticket", 40,
         Titles{"{thing} forgets {part}", "{part} for {thing}", "{thing} in small windows",
                "Ask {person} about {part}"}},
        {"person", 22, Titles{"{person} looks after {part}", "{person} is away until {weekday}"}},
        {"question", 20,
         Titles{"Why does {thing} wait for {part}?", "Who still uses {part} of {project}?"}},
        {"idea", 20, Titles{"{thing} without {part}", "Let {tool} draw {part}"}},
        {"reference", 14, Titles{"The page about {part} in {tool}'s manual"}},
        {"session", 10, Titles{"{weekday}: {thing}, then {part}"}},
        {"focus", 2, Titles{"{thing} until {weekday}"}}};
    return list;
}

constexpr StandingRule ruleList[] = {
    {"/", "", "Never remove a backup before it has been read back",
     "One was removed for its newer copy, and that copy was empty."},
    {"/", "", "Say what you changed before you say why",
     "The why is read only if the what surprises."},
    {"/", "", "Dates in files are written year first", "Two readers took 4/5 for two days."},
    {"/", "", "Ask before anything is sent to somebody outside", "A draft went to a customer."},
    {"/", "writing", "Short sentences; one thought each", "Long ones were not read to the end."},
    {"/", "writing", "No exclamation marks in texts for customers", "They read as shouting."},
    {"/", "shell", "Quote every path in a script",
     "A folder with a blank in its name was emptied."},
    {"/", "shell", "set -euo pipefail at the head of each script",
     "A failed step was passed over."},
    {"/studio", "", "Work on a branch; main is only merged into",
     "Main was broken over a weekend."},
    {"/studio", "", "Name the person who decided, not “we”", "Nobody knew whom to ask."},
    {"/studio", "testing", "A bug's test comes before its mend", "Two mends mended nothing."},
    {"/studio", "testing", "No test waits for the clock", "The suite took eleven minutes."},
    {"/studio", "reviews", "Read the whole change before the first remark",
     "The answer stood below."},
    {"/studio/atlas", "", "Place names keep their accents, always", "Two villages became one."},
    {"/studio/atlas", "", "Coordinates are latitude first", "A church stood in the sea."},
    {"/studio/atlas", "import", "An import that fails leaves the old rows", "The index was empty."},
    {"/studio/atlas", "import", "Count rows before & after, and say both",
     "\"All good\" was wrong."},
    {"/studio/atlas", "Testing ", "Map tests draw at two sizes", "Labels met at the small one."},
    {"/studio/atlas/search", "", "Search is tried with words of three letters",
     "Short words hung."},
    {"/studio/press", "", "Proofs are read on paper", "A line was lost at the fold."},
    {"/studio/press", "print", "Black is K only in body text", "The thin strokes were blurred."},
    {"/studio/letters", "", "Letters are quoted to the letter, mistakes too", "They are evidence."},
    {"/clients/harbour", "", "Amounts are in cents until they are shown", "Rounding cost a day."},
    {"/clients/harbour", "billing", "An invoice is never changed, only cancelled", "The law."},
    {"/home/garden", "", "Beds are numbered from the gate", "The plan was turned once."},
    {"/studio/workshop", "two words", "Tools go back clean", "This tag is not one word."},
};

constexpr std::pair<Words, Words> sentencesOfModules[] = {
    {"writing", "Read before writing a text that somebody outside will see."},
    {"shell", "Read before running or writing a script."},
    {"testing", "Read before adding or changing a test."},
    {"reviews", "Read before reviewing a change."},
    {"import", "Read before touching what reads other people's files."},
    {"print", "Read before a sheet goes to the press."},
    {"billing", "Read before anything that counts \"money\" & hours."},
};

constexpr Words awkward[] = {
    "القرار: تُحفظ النسخة الاحتياطية قبل كل استيراد",
    "החלטה: שמות המקומות נשארים עם הניקוד 🗺️",
    "🚀🚀 Release day: 🧪 → ✅ → 📦 and 👩🏽‍💻 stays on call",
    "Füße, Straße, Ærø, Łódź, Ångström, İstanbul, Đà Nẵng — names that search must find",
    "東京の地図は縮尺を揃える",
    "First line of a note\nsecond line, with\ta tab\n\n    indented code();\n\nand a last one",
    "https://example.org/archive/2026/a/path/without/any/blank?with=a&query=too#and-more",
    "<b>not bold</b> & \"quoted\" 'twice' — {braces} [brackets] \\backslash\\ %d $HOME",
    "mixed: the word שלום stands in an English sentence, and العربية too",
    "   blanks at both ends   ",
};

} // namespace

std::span<const Project> projects() {
    return projectList;
}

std::span<const Words> words(Words slot) {
    const struct {
        Words slot;
        std::span<const Words> words;
    } slots[] = {{"people", people}, {"thing", things},   {"part", parts},
                 {"tool", tools},    {"reason", reasons}, {"weekday", weekdays}};
    for (const auto& entry : slots)
        if (entry.slot == slot)
            return entry.words;
    return people;
}

std::span<const Words> sentences() {
    return sentenceList;
}

std::span<const MemoryType> memoryTypes() {
    return types();
}

std::span<const StandingRule> standingRules() {
    return ruleList;
}

std::span<const std::pair<Words, Words>> moduleSentences() {
    return sentencesOfModules;
}

std::span<const Words> awkwardTexts() {
    return awkward;
}

} // namespace wendlow::Vocabulary
