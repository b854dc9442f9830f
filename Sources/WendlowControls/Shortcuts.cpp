#include "Shortcuts.h"

namespace wendlow {

namespace {

using Id = Shortcuts::Id;
using Line = Shortcuts::Line;

constexpr std::string_view anywhere = "Every window";
constexpr std::string_view editing = "Words";
constexpr std::string_view memories = "Memories";
constexpr std::string_view worlds = "Worlds, in Memories";
constexpr std::string_view stats = "Stats";
constexpr std::string_view settings = "Settings";

constexpr auto table = std::to_array<Line>({
    {Id::KeyboardShortcuts, anywhere, "Keyboard Shortcuts", {"F1", "Ctrl+?"}},
    {Id::Settings, anywhere, "Settings", {"Ctrl+,"}},
    {Id::Close, anywhere, "Close", {"Ctrl+W"}},
    {Id::Minimize, anywhere, "Minimize", {"Ctrl+M"}},
    {Id::MenuBar, anywhere, "Menu Bar", {"F10"}},
    {Id::Quit, anywhere, "Quit", {"Ctrl+Q"}},

    {Id::Undo, editing, "Undo", {"Ctrl+Z"}},
    {Id::Redo, editing, "Redo", {"Ctrl+Shift+Z"}},
    {Id::Cut, editing, "Cut", {"Ctrl+X"}},
    {Id::Copy, editing, "Copy", {"Ctrl+C"}},
    {Id::Paste, editing, "Paste", {"Ctrl+V"}},
    {Id::SelectAll, editing, "Select All", {"Ctrl+A"}},

    {Id::Search, memories, "Search", {"Ctrl+F"}},
    {Id::BackToResults, memories, "Back to the Results", {"Alt+Left"}},
    {Id::StepBack, memories, "One Step Back", {"Esc"}},
    {Id::CopyMemory, memories, "Copy the Memory", {"Ctrl+C", "Ctrl+Ins"}},
    {Id::MemoryMenu, memories, "Menu of the Memory", {"Shift+F10", "Menu"}},
    {Id::NewRule, memories, "New Rule, among the Rules", {"Ctrl+N"}},
    {Id::NewScope, memories, "New Scope, among the Scopes", {"Ctrl+N"}},
    {Id::EraseLine, memories, "Delete the Line of a Meeting", {"Del"}},

    {Id::DayZero, worlds, "Day zero", {"Ctrl+1"}},
    {Id::SomeData, worlds, "Some data", {"Ctrl+2"}},
    {Id::PowerUser, worlds, "Power user", {"Ctrl+3"}},
    {Id::RealData, worlds, "My real data", {"Ctrl+4"}},

    {Id::PreviousDay, stats, "Previous Day", {"Left"}},
    {Id::NextDay, stats, "Next Day", {"Right"}},
    {Id::Today, stats, "Today", {"T"}},
    {Id::Refresh, stats, "Read Again", {"F5"}},

    {Id::DiagnosticLog, settings, "Diagnostic Log On or Off, in General", {"Alt+L"}},
    {Id::RemoveRule, settings, "Remove the Rule, in Recording", {"Del", "Backspace"}},
});

constexpr bool standsInTheOrderOfTheCases() {
    for (std::size_t at = 0; at < table.size(); ++at)
        if (table[at].id != static_cast<Id>(at))
            return false;
    return true;
}
static_assert(standsInTheOrderOfTheCases());

const Line& line(int id) {
    return table[static_cast<std::size_t>(id)];
}

QString text(std::string_view words) {
    return QString::fromUtf8(words);
}

} // namespace

std::span<const Shortcuts::Line> Shortcuts::all() {
    return table;
}

QString Shortcuts::title(Id id) {
    return text(line(id).title);
}

QVariantList Shortcuts::of(int id) {
    QVariantList list;
    for (const std::string_view keys : line(id).keys)
        if (!keys.empty())
            list.append(text(keys));
    return list;
}

QList<QKeySequence> Shortcuts::keys(Id id) {
    QList<QKeySequence> list;
    for (const QVariant& keys : of(id))
        list.append(QKeySequence::fromString(keys.toString(), QKeySequence::PortableText));
    return list;
}

QString Shortcuts::told(int id) {
    return keys(static_cast<Id>(id)).first().toString(QKeySequence::NativeText);
}

bool Shortcuts::isPressed(int id, int key, int modifiers) {
    const auto held = Qt::KeyboardModifiers::fromInt(modifiers) & ~Qt::KeypadModifier;
    return keys(static_cast<Id>(id))
        .contains(QKeySequence(QKeyCombination(held, static_cast<Qt::Key>(key))));
}

} // namespace wendlow

#include "moc_Shortcuts.cpp"
