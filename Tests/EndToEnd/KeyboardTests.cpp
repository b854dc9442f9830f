#include "Support/KeyWalk.h"
#include "Support/OnADesktop.h"

#include <QJsonArray>
#include <QRegularExpression>

#include <gmock/gmock.h>

#include <map>
#include <set>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::IsEmpty;

/// The main menu and the sheet of the keys, worked by key.
class Keyboard : public OnADesktop {
protected:
    void start(const QStringList& arguments, const QString& title) {
        gateway.start();
        application.emplace(desktop, arguments);
        ASSERT_TRUE(isFront(title)) << application->errors().toStdString();
    }
    bool isFront(const QString& title) const {
        const auto window = application->window(title);
        return window && eventually([&] { return window->isActive(); });
    }
    QStringList focused(const QString& title) const {
        return KeyWalk(desktop, *application, title).focused();
    }
    bool hasFocus(const QString& title, const QString& thing) const {
        return eventually([&] { return focused(title) == QStringList(thing); });
    }
    bool gone(const QString& name) const {
        return eventually([&] { return !application->findNow(name).has_value(); });
    }
    /// Opens a window by its line of the Window menu, which is the last one.
    void bring(const QString& line) const {
        desktop.press({u"F10"_s, u"Left"_s, u"Down"_s});
        ASSERT_TRUE(application->find(u"menu item"_s, line));
        desktop.press(QStringList(lines.indexOf(line), u"Down"_s) + QStringList{u"Return"_s});
    }

    const QStringList lines{u"Close"_s,    u"Minimize"_s, u"Settings"_s,
                            u"Memories"_s, u"Stats"_s,    u"First Run"_s};
};

TEST_F(Keyboard, TheWindowMenuLeadsToEveryWindow) {
    start({u"--window=stats"_s}, u"Stats"_s);
    for (const auto& [line, title] : {std::pair(u"Settings"_s, u"Wendlow"_s),
                                      {u"Memories"_s, u"Memories"_s},
                                      {u"First Run"_s, u"Welcome to Wendlow"_s},
                                      {u"Stats"_s, u"Stats"_s}}) {
        bring(line);
        EXPECT_TRUE(isFront(title)) << line.toStdString();
    }
    EXPECT_EQ(application->windowTitles().size(), 4) << "one of each kind";
}

TEST_F(Keyboard, TheAboutPanelNamesTheBuildAndWhatItIsLinkedFrom) {
    start({u"--window=stats"_s}, u"Stats"_s);
    desktop.press({u"F10"_s, u"Down"_s, u"Return"_s});
    const QString title = u"About Wendlow"_s;
    ASSERT_TRUE(isFront(title));
    const auto panel = application->window(title);
    EXPECT_TRUE(panel->find([](const Accessible& thing) {
        static const QRegularExpression version(u"^Version [0-9.]+, build [0-9a-f]{12}$"_s);
        return version.match(thing.name()).hasMatch();
    }));
    QString told;
    for (const Accessible& line :
         panel->all([](const Accessible& thing) { return thing.role() == u"list item"_s; }))
        told += line.name().toLower().remove(u'-') + u'\n';
    // What the system's loader is asked for, but for the compiler's own.
    const QString asked = desktop.run(
        u"readelf"_s, {u"-d"_s, QStringLiteral(WENDLOW_BUNDLE "/Contents/MacOS/wendlow-settings")});
    static const QRegularExpression library(
        u"\\[lib(?:Qt6|boost_)?([a-zA-Z+_]+)[^\\]]*\\.so[^\\]]*\\]"_s);
    int named = 0;
    for (auto match = library.globalMatch(asked); match.hasNext(); ++named) {
        const QString name = match.next().captured(1).toLower();
        const bool isCompilers =
            QStringList{u"stdc++"_s, u"m"_s, u"gcc_s"_s, u"c"_s}.contains(name);
        EXPECT_TRUE(isCompilers || told.contains(name)) << name.toStdString();
    }
    EXPECT_GT(named, 8);
    EXPECT_THAT(nameless(title), IsEmpty());
    desktop.press({u"Escape"_s});
    EXPECT_TRUE(isFront(u"Stats"_s));
}

/// Each line of the sheet is pressed where it says that it works, in all ways that it names, and is
/// held against what a person sees come of it.
class Sheet : public Keyboard {
protected:
    using Keys = QStringList;
    /// Gives whether the keys did what they are for. They are the ways to press them by X names.
    using Deed = std::function<bool(const Keys&)>;

    struct Line {
        QString title;
        Keys keys;
        auto operator<=>(const Line&) const = default;
    };

    static QString xName(const QString& told) {
        static const std::map<QString, QString> names{
            {u","_s, u"comma"_s},    {u"?"_s, u"question"_s},  {u"Del"_s, u"Delete"_s},
            {u"Ins"_s, u"Insert"_s}, {u"Esc"_s, u"Escape"_s},  {u"Backspace"_s, u"BackSpace"_s},
            {u"Ctrl"_s, u"ctrl"_s},  {u"Shift"_s, u"shift"_s}, {u"Alt"_s, u"alt"_s}};
        QStringList parts = told.split(u'+');
        for (QString& part : parts) {
            if (const auto known = names.find(part); known != names.end())
                part = known->second;
            else if (part.size() == 1)
                part = part.toLower();
        }
        return parts.join(u'+');
    }

    std::vector<Line> sheet() const {
        const auto window = application->window(title);
        std::vector<Line> all;
        for (const Accessible& line :
             window->all([](const Accessible& thing) { return thing.role() == u"list item"_s; })) {
            Keys keys;
            for (const QString& way : line.description().split(u" or "_s))
                keys.append(xName(way));
            all.push_back({line.name(), keys});
        }
        return all;
    }
    void press(const Keys& keys) const { desktop.press(keys); }
    void pressNamed(const QString& name) const { OnADesktop::press(name); }
    bool found(const QString& term) const { return is("heading", results(term)); }
    static QString results(const QString& term) { return u"Results for “%1”"_s.arg(term); }
    /// The name of the first thing that begins so and can be seen.
    QString beginning(const QString& words) const {
        QString name;
        eventually([&] {
            const auto window = application->window(u"Memories"_s);
            const auto thing = window ? window->find([&](const Accessible& each) {
                return each.isShowing() && each.name().startsWith(words);
            })
                                      : std::nullopt;
            name = thing ? thing->name() : QString();
            return thing.has_value();
        });
        return name;
    }
    bool openFace(const QString& name) const {
        pressNamed(beginning(name + u", "_s));
        return is("heading", name) || is("list", name);
    }
    /// Each of the ways, one after the other.
    static Deed eachWay(const std::function<bool(const QString&)>& deed) {
        return [deed](const Keys& keys) { return std::ranges::all_of(keys, deed); };
    }

    /// In the order in which they can be done; what each begins with is what the one before left.
    std::vector<std::pair<QString, Deed>> deeds() {
        return {
            {u"Keyboard Shortcuts"_s, eachWay([this](const QString& keys) {
                 press({u"Escape"_s});
                 const bool closed =
                     eventually([&] { return !application->windowTitles().contains(title); });
                 press({keys});
                 return closed && isFront(title);
             })},
            {u"Close"_s,
             [this](const Keys& keys) {
                 press(keys);
                 return eventually([&] { return !application->windowTitles().contains(title); });
             }},
            {u"Menu Bar"_s,
             [this](const Keys& keys) {
                 press(keys);
                 const bool there = hasFocus(u"Memories"_s, u"menu item Wendlow"_s);
                 press({u"Escape"_s});
                 return there;
             }},
            {u"Search"_s,
             [this](const Keys& keys) {
                 press({u"Tab"_s, u"Tab"_s});
                 press(keys);
                 return hasFocus(u"Memories"_s, u"text Search"_s);
             }},
            {u"Select All"_s,
             [this](const Keys& keys) {
                 write(u"backup"_s);
                 if (!found(u"backup"_s))
                     return false;
                 press(keys);
                 write(u"harbour"_s);
                 return found(u"harbour"_s);
             }},
            {u"Cut"_s,
             [this](const Keys& keys) {
                 press({u"ctrl+a"_s});
                 press(keys);
                 return gone(results(u"harbour"_s));
             }},
            {u"Paste"_s,
             [this](const Keys& keys) {
                 press(keys);
                 return found(u"harbour"_s);
             }},
            {u"Copy"_s,
             [this](const Keys& keys) {
                 press({u"ctrl+a"_s});
                 write(u"backup"_s);
                 press({u"ctrl+a"_s});
                 press(keys);
                 write(u"boats"_s);
                 const bool other = found(u"boats"_s);
                 press({u"ctrl+a"_s, u"ctrl+v"_s});
                 return other && found(u"backup"_s);
             }},
            {u"Undo"_s,
             [this](const Keys& keys) {
                 press({u"ctrl+a"_s, u"ctrl+x"_s});
                 const bool empty = gone(results(u"backup"_s));
                 press(keys);
                 return empty && found(u"backup"_s);
             }},
            {u"Redo"_s,
             [this](const Keys& keys) {
                 press(keys);
                 return gone(results(u"backup"_s));
             }},
            {u"Back to the Results"_s,
             [this](const Keys& keys) {
                 write(u"backup"_s);
                 const bool before = found(u"backup"_s);
                 press({u"Return"_s});
                 const bool left =
                     gone(u"Clear the search"_s) || !application->findNow(u"memories"_s);
                 press(keys);
                 return before && left && found(u"backup"_s);
             }},
            {u"One Step Back"_s,
             [this](const Keys& keys) {
                 press(keys);
                 return gone(results(u"backup"_s));
             }},
            {u"Copy the Memory"_s, eachWay([this](const QString& keys) {
                 pressNamed(beginning(u"Memories, "_s));
                 pressNamed(beginning(u"decisions, "_s));
                 press({u"ctrl+f"_s, u"Tab"_s, u"Right"_s});
                 if (!eventually([&] {
                         return focused(u"Memories"_s).value(0).startsWith(u"list item"_s);
                     }))
                     return false;
                 press({keys});
                 return says(u"Copied"_s) && gone(u"Copied"_s);
             })},
            {u"Menu of the Memory"_s, eachWay([this](const QString& keys) {
                 press({keys});
                 const bool there = is("menu item", u"Copy ID"_s);
                 press({u"Escape"_s});
                 return there && gone(u"Copy ID"_s);
             })},
            {u"New Rule, among the Rules"_s,
             [this](const Keys& keys) {
                 pressNamed(beginning(u"Rules, "_s));
                 if (!is("heading", u"Rules"_s))
                     return false;
                 press(keys);
                 const bool there = is("heading", u"New rule at /"_s);
                 press({u"Escape"_s});
                 return there && gone(u"New rule at /"_s);
             }},
            {u"New Scope, among the Scopes"_s,
             [this](const Keys& keys) {
                 pressNamed(beginning(u"Scopes, "_s));
                 if (!is("heading", u"Scopes"_s))
                     return false;
                 press(keys);
                 const bool there = is("heading", u"New scope"_s);
                 press({u"Escape"_s});
                 return there && gone(u"New scope"_s);
             }},
            {u"Delete the Line of a Meeting"_s,
             [this](const Keys& keys) {
                 const auto count = [this] {
                     const QString list =
                         gateway.ask(R"({"read":{"_0":{"meetingList":{}}}})")["_0"_L1].toString();
                     const std::string newest =
                         list.section(u"\n- "_s, 1, 1).section(u" · "_s, 0, 0).toStdString();
                     return gateway
                         .ask(R"({"read":{"_0":{"meetingTranscript":{"id":")" + newest +
                              R"("}}}})")["_0"_L1]["lines"_L1]
                         .toArray()
                         .size();
                 };
                 const auto before = count();
                 pressNamed(beginning(u"Meetings, "_s));
                 press({u"ctrl+f"_s, u"Tab"_s, u"Right"_s, u"Home"_s, u"Return"_s});
                 if (!is("push button", u"Close"_s))
                     return false;
                 press({u"Home"_s, u"Tab"_s});
                 press(keys);
                 const bool fewer = eventually([&] { return count() + 1 == before; });
                 press({u"Escape"_s});
                 return fewer;
             }},
            {u"Day zero"_s, world()},
            {u"Some data"_s, world()},
            {u"Power user"_s, world()},
            {u"My real data"_s,
             [this](const Keys& keys) {
                 press(keys);
                 return gone(u"These memories are made up."_s);
             }},
            {u"Minimize"_s,
             [this](const Keys& keys) {
                 bring(u"Stats"_s);
                 const bool there = isFront(u"Stats"_s) && desktop.hasWindow(u"Stats"_s);
                 press(keys);
                 const bool away = eventually([&] { return !desktop.hasWindow(u"Stats"_s); });
                 return there && away;
             }},
            {u"Settings"_s,
             [this](const Keys& keys) {
                 press(keys);
                 return isFront(u"Wendlow"_s);
             }},
            {u"Diagnostic Log On or Off, in General"_s,
             [this](const Keys& keys) {
                 pressNamed(u"General"_s);
                 const QString log = u"Keep a diagnostic log"_s;
                 if (!is("check box", u"All day screenshots"_s) || application->findNow(log))
                     return false;
                 press(keys);
                 return is("check box", log);
             }},
            {u"Remove the Rule, in Recording"_s, eachWay([this](const QString& keys) {
                 pressNamed(u"Recording Control"_s);
                 pressNamed(u"Add topic"_s);
                 if (!is("push button", u"Cancel"_s))
                     return false;
                 write(u"plans"_s);
                 press({u"Return"_s});
                 if (!gone(u"Cancel"_s) || !is("list item", u"plans"_s))
                     return false;
                 press({u"Tab"_s, u"End"_s});
                 press({keys});
                 return gone(u"plans"_s);
             })},
            {u"Previous Day"_s,
             [this](const Keys& keys) {
                 bring(u"Stats"_s);
                 if (!isFront(u"Stats"_s) || !says(u"TODAY"_s))
                     return false;
                 press(keys);
                 return says(u"YESTERDAY"_s) || gone(u"YOUR WORKING DAY"_s);
             }},
            {u"Next Day"_s,
             [this](const Keys& keys) {
                 press(keys);
                 return is("heading", u"YOUR WORKING DAY"_s);
             }},
            {u"Today"_s,
             [this](const Keys& keys) {
                 press({u"Left"_s, u"Left"_s});
                 const bool away = gone(u"YOUR WORKING DAY"_s);
                 press(keys);
                 return away && is("heading", u"YOUR WORKING DAY"_s);
             }},
            {u"Read Again"_s,
             [this](const Keys& keys) {
                 gateway.start("answer", "", "no-times");
                 press(keys);
                 return says(u"no app data"_s);
             }},
            {u"Quit"_s,
             [this](const Keys& keys) {
                 press(keys);
                 return application->waitForEnd();
             }},
        };
    }
    /// The rail counts another world than before.
    Deed world() {
        return [this](const Keys& keys) {
            const QString before = beginning(u"Memories"_s);
            press(keys);
            return says(u"These memories are made up."_s) &&
                   eventually([&] { return beginning(u"Memories"_s) != before; });
        };
    }

    const QString title = u"Keyboard Shortcuts"_s;
};

TEST_F(Sheet, EachOfItsLinesDoesWhatItSays) {
    start({u"--window=editor"_s}, u"Memories"_s);
    desktop.press({u"F1"_s});
    ASSERT_TRUE(isFront(title));
    EXPECT_THAT(nameless(title), IsEmpty());
    const std::vector<Line> told = sheet();
    std::set<QString> done;
    for (const auto& [name, deed] : deeds()) {
        const auto line = std::ranges::find(told, name, &Line::title);
        ASSERT_NE(line, told.end()) << name.toStdString() << " is not on the sheet";
        ASSERT_TRUE(deed(line->keys))
            << name.toStdString() << ", by " << line->keys.join(u" or "_s).toStdString();
        done.insert(name);
    }
    for (const Line& line : told)
        EXPECT_TRUE(done.contains(line.title)) << line.title.toStdString() << " was not pressed";
}

} // namespace
} // namespace wendlow::testing
