#include "Shortcuts.h"

#include "Say.h"

namespace wendlow {

namespace {

using Id = Shortcuts::Id;
using Line = Shortcuts::Line;

constexpr const char* anywhere = sayLater("Every window");
constexpr const char* editing = sayLater("Words");
constexpr const char* memories = sayLater("Memories");
constexpr const char* worlds = sayLater("Worlds, in Memories");
constexpr const char* stats = sayLater("Stats");
constexpr const char* settings = sayLater("Settings");

constexpr auto table = std::to_array<Line>({
    {Id::KeyboardShortcuts, anywhere, sayLater("Keyboard Shortcuts"), {"F1", "Ctrl+?"}},
    {Id::Settings, anywhere, sayLater("Settings"), {"Ctrl+,"}},
    {Id::Close, anywhere, sayLater("Close"), {"Ctrl+W"}},
    {Id::Minimize, anywhere, sayLater("Minimize"), {"Ctrl+M"}},
    {Id::MenuBar, anywhere, sayLater("Menu Bar"), {"F10"}},
    {Id::Quit, anywhere, sayLater("Quit"), {"Ctrl+Q"}},

    {Id::Undo, editing, sayLater("Undo"), {"Ctrl+Z"}},
    {Id::Redo, editing, sayLater("Redo"), {"Ctrl+Shift+Z"}},
    {Id::Cut, editing, sayLater("Cut"), {"Ctrl+X"}},
    {Id::Copy, editing, sayLater("Copy"), {"Ctrl+C"}},
    {Id::Paste, editing, sayLater("Paste"), {"Ctrl+V"}},
    {Id::SelectAll, editing, sayLater("Select All"), {"Ctrl+A"}},

    {Id::Search, memories, sayLater("Search"), {"Ctrl+F"}},
    {Id::BackToResults, memories, sayLater("Back to the Results"), {"Alt+Left"}},
    {Id::StepBack, memories, sayLater("One Step Back"), {"Esc"}},
    {Id::CopyMemory, memories, sayLater("Copy the Memory"), {"Ctrl+C", "Ctrl+Ins"}},
    {Id::MemoryMenu, memories, sayLater("Menu of the Memory"), {"Shift+F10", "Menu"}},
    {Id::NewRule, memories, sayLater("New Rule, among the Rules"), {"Ctrl+N"}},
    {Id::NewScope, memories, sayLater("New Scope, among the Scopes"), {"Ctrl+N"}},
    {Id::EraseLine, memories, sayLater("Delete the Line of a Meeting"), {"Del"}},

    {Id::DayZero, worlds, sayLater("Day zero"), {"Ctrl+1"}},
    {Id::SomeData, worlds, sayLater("Some data"), {"Ctrl+2"}},
    {Id::PowerUser, worlds, sayLater("Power user"), {"Ctrl+3"}},
    {Id::RealData, worlds, sayLater("My real data"), {"Ctrl+4"}},

    {Id::PreviousDay, stats, sayLater("Previous Day"), {"Left"}},
    {Id::NextDay, stats, sayLater("Next Day"), {"Right"}},
    {Id::Today, stats, sayLater("Today"), {"T"}},
    {Id::Refresh, stats, sayLater("Read Again"), {"F5"}},

    {Id::DiagnosticLog, settings, sayLater("Diagnostic Log On or Off, in General"), {"Alt+L"}},
    {Id::RemoveRule, settings, sayLater("Remove the Rule, in Recording"), {"Del", "Backspace"}},
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

QString Shortcuts::place(Id id) {
    return say(line(id).place);
}

QString Shortcuts::title(Id id) {
    return say(line(id).title);
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
