#include "Files.h"
#include "Support/KeyWalk.h"
#include "Support/OnADesktop.h"

#include <QDateTime>
#include <QImage>
#include <QJsonArray>
#include <QLocale>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::IsEmpty;

/// The moments in the real window, held against what the gateway holds.
class Moments : public OnADesktop {
protected:
    void open() {
        application.emplace(desktop, QStringList{u"--window=editor"_s});
        const auto window = application->window(u"Memories"_s);
        ASSERT_TRUE(window) << application->errors().toStdString();
        ASSERT_TRUE(eventually([&] { return window->isActive(); }));
    }
    QJsonArray moments(const std::string& fields) const {
        return gateway.browse(fields, "moment")["rows"_L1].toArray();
    }
    qint64 count() const {
        return gateway.browse(R"("limit":1)", "moment")["total"_L1].toInteger();
    }
    /// How a picture is told to a screen reader.
    static QString name(const QJsonValue& row) {
        const auto at =
            QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(row["at"_L1].toDouble() * 1000));
        return row["title"_L1].toString() + u", "_s + QLocale().toString(at.time(), u"h:mm AP"_s);
    }
    /// The first of these that is a picture, and where it stands.
    static std::pair<QJsonValue, qsizetype> picture(const QJsonArray& rows) {
        for (qsizetype at = 0; at < rows.size(); ++at)
            if (rows[at]["framed"_L1].toBool())
                return {rows[at], at};
        return {};
    }
};

TEST_F(Moments, AreScrolledFromTheNewestToTheOldestAndOpenedInAViewer) {
    // What a person's own viewer does: takes the file that it is given, and reads it.
    const auto seen = desktop.home() / "seen.png";
    const auto told = desktop.home() / "told";
    put(desktop.home() / "bin/xdg-open",
        "#!/bin/sh\nfile=\"${1#file://}\"\ncp \"$file\" '" + seen.string() +
            "'\nprintf %s \"$file\" > '" + told.string() + "'\n",
        0755);
    desktop.setVariable(u"PATH"_s, QString::fromStdString((desktop.home() / "bin").string()) +
                                       u':' + desktop.environment().value(u"PATH"_s));
    gateway.fill = "moments";
    gateway.start();
    const QJsonArray newest = moments(R"("limit":50)");
    const QJsonValue oldest = moments(R"("limit":1,"order":"oldest")")[0];
    const auto& [shown, at] = picture(newest);
    ASSERT_EQ(count(), 50'000);
    open();
    press(u"Moments, 50000"_s);
    EXPECT_TRUE(says(u"50000 moments in all"_s));
    ASSERT_TRUE(is("list item", name(shown)));
    EXPECT_THAT(nameless(u"Memories"_s), IsEmpty());
    KeyWalk walk(desktop, *application, u"Memories"_s);
    EXPECT_THAT(walk.press({u"Tab"_s, u"Right"_s}), IsEmpty());
    EXPECT_THAT(walk.press(QStringList(at, u"Right"_s)), IsEmpty());
    EXPECT_EQ(walk.focused(), QStringList{u"list item "_s + name(shown)});

    desktop.press({u"End"_s});
    EXPECT_TRUE(eventually([&] { return is("list item", name(oldest)); })) << "the last of all";
    EXPECT_THAT(walk.press({u"Up"_s, u"Page_Up"_s, u"Down"_s, u"Home"_s}), IsEmpty());
    EXPECT_TRUE(is("list item", name(shown))) << "and the first again";
    EXPECT_THAT(walk.press(QStringList(at, u"Right"_s)), IsEmpty());

    const QString title = shown["title"_L1].toString();
    desktop.press({u"Return"_s});
    ASSERT_TRUE(is("dialog", title));
    EXPECT_TRUE(is("push button", u"Copy picture"_s)) << "its picture has come";
    EXPECT_THAT(nameless(u"Memories"_s), IsEmpty());
    EXPECT_THAT(walk.press({u"Left"_s, u"Right"_s, u"Up"_s, u"Down"_s, u"x"_s, u"ctrl+f"_s}),
                IsEmpty());
    EXPECT_EQ(walk.focused(), QStringList{u"dialog "_s + title});
    EXPECT_THAT(walk.press({u"Tab"_s, u"Tab"_s}), IsEmpty());
    desktop.press({u"Return"_s});
    ASSERT_TRUE(eventually([&] { return get(told).value_or("").size() > 0; }));
    const std::filesystem::path file = *get(told);
    EXPECT_EQ(file.parent_path(), desktop.home() / "runtime/wendlow-screens");
    EXPECT_TRUE(
        file.filename().string().starts_with("moment-" + shown["id"_L1].toString().toStdString()));
    EXPECT_EQ(modeOf(file), 0600);
    EXPECT_EQ(modeOf(file.parent_path()), 0700);
    EXPECT_EQ(get(seen), get(file));
    EXPECT_FALSE(QImage(QString::fromStdString(seen.string())).isNull());

    EXPECT_THAT(walk.press({u"Escape"_s}), IsEmpty());
    EXPECT_EQ(walk.focused(), QStringList{u"list item "_s + name(shown)}) << "back at its cell";
    desktop.press({u"ctrl+q"_s});
    EXPECT_TRUE(application->waitForEnd());
    EXPECT_FALSE(std::filesystem::exists(file.parent_path()));
}

TEST_F(Moments, KeepComingWhileTheWindowIsOpen) {
    gateway.more = {"--live", "400"};
    gateway.start();
    open();
    const auto place = [&] {
        return application->window(u"Memories"_s)->find([](const Accessible& thing) {
            return thing.name().startsWith(u"Moments, ");
        });
    };
    ASSERT_TRUE(eventually([&] { return place().has_value(); }));
    const auto then = place()->name().section(u", "_s, 1).toLongLong();
    ASSERT_TRUE(place()->act(u"Press"_s));
    ASSERT_TRUE(says(u"%1 moments in all"_s.arg(then)));
    ASSERT_TRUE(eventually([&] { return count() > then + 3; }));
    // Older ones are read on behind those that are here, with the new ones pushing from above.
    desktop.press({u"Tab"_s, u"Right"_s, u"End"_s});
    EXPECT_TRUE(is("list item", name(picture(moments(R"("limit":9,"order":"oldest")")).first)));
    const QJsonValue newest = picture(moments(R"("limit":9)")).first;
    press(u"World"_s);
    press(u"Reset World"_s);
    EXPECT_TRUE(is("list item", name(newest)));
    EXPECT_TRUE(is("heading", u"Today"_s));
}

} // namespace
} // namespace wendlow::testing
