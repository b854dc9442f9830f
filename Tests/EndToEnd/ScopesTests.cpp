#include "Files.h"
#include "Support/KeyWalk.h"
#include "Support/OnADesktop.h"

#include <QJsonArray>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::HasSubstr;

/// The scopes in the real window, worked by key, held against what the gateway holds.
class Scopes : public OnADesktop {
protected:
    void open() {
        application.emplace(desktop, QStringList{u"--window=editor"_s});
        const auto window = application->window(u"Memories"_s);
        ASSERT_TRUE(window) << application->errors().toStdString();
        ASSERT_TRUE(eventually([&] { return window->isActive(); }));
        press(u"scope: /"_s);
        press(u"Manage Scopes…"_s);
        ASSERT_TRUE(is("heading", u"Scopes"_s));
    }
    /// The folders that map to a scope; nothing where the gateway knows no such scope.
    std::optional<QJsonArray> folders(const QString& path) const {
        const QJsonObject board = gateway.ask(R"({"notes":{"_0":{"scopeBoard":{}}}})");
        for (const auto& row : board["_0"_L1].toArray())
            if (row["path"_L1].toString() == path)
                return row["folders"_L1].toArray();
        return std::nullopt;
    }
    std::filesystem::path scripts() const { return desktop.home() / ".wendlow/migrations"; }
};

TEST_F(Scopes, AreMappedToFoldersByKeyAlone) {
    gateway.start();
    open();
    desktop.press({u"ctrl+n"_s});
    ASSERT_TRUE(is("heading", u"New scope"_s));
    write(u"harbour"_s);
    EXPECT_TRUE(says(u"A scope’s path begins with “/”."_s));
    desktop.press({u"Home"_s, u"slash"_s, u"Tab"_s, u"slash"_s});
    write(u"piers"_s);
    desktop.press({u"Return"_s});
    EXPECT_TRUE(says(u"/piers maps to /harbour."_s));
    EXPECT_TRUE(is("list item", u"/harbour"_s)) << "the board has followed";
    EXPECT_EQ(folders(u"/harbour"_s), QJsonArray{u"/piers"_s});
    // A sheet that is on its way out still takes the focus along once.
    EXPECT_TRUE(eventually([&] { return !application->findNow(u"New scope"_s); }));
    // The new scope is the selected one, and the focus is at it.
    const KeyWalk walk(desktop, *application, u"Memories"_s);
    EXPECT_TRUE(eventually([&] { return walk.focused() == QStringList{u"list item /harbour"_s}; }))
        << walk.focused().join(u'\n').toStdString();
    desktop.press({u"Tab"_s, u"Return"_s});
    ASSERT_TRUE(is("heading", u"Map a folder to /harbour"_s))
        << walk.focused().join(u'\n').toStdString();
    desktop.press({u"slash"_s});
    write(u"docks"_s);
    gateway.wedge();
    desktop.press({u"Return"_s});
    EXPECT_TRUE(is("heading", u"Map a folder to /harbour"_s)) << "it stays open meanwhile";
    gateway.kill();
    EXPECT_TRUE(says(u"Wendlow isn't running — start it to access your memory."_s));
    gateway.start();
    desktop.press({u"Return"_s});
    EXPECT_TRUE(says(u"/docks maps to /harbour."_s)) << "what was typed was not lost";
    EXPECT_EQ(folders(u"/harbour"_s)->size(), 2);
}

TEST_F(Scopes, AreMovedByAScriptThatIsWrittenAndNotRun) {
    gateway.start();
    const auto before = folders(u"/studio/atlas"_s);
    ASSERT_TRUE(before);
    open();
    press(u"/studio"_s);
    desktop.press({u"Return"_s});
    ASSERT_TRUE(is("heading", u"Rename /studio"_s));
    EXPECT_TRUE(says(u"That is its path already."_s));
    desktop.press({u"ctrl+a"_s, u"slash"_s});
    write(u"workshop"_s);
    EXPECT_TRUE(is("list item", u"/studio/atlas → /workshop/atlas"_s));
    desktop.press({u"Escape"_s});
    EXPECT_FALSE(std::filesystem::exists(scripts())) << "Escape writes nothing";
    desktop.press({u"Return"_s});
    ASSERT_TRUE(is("heading", u"Rename /studio"_s));
    desktop.press({u"ctrl+a"_s, u"slash"_s});
    write(u"workshop"_s);
    desktop.press({u"Return"_s});
    EXPECT_TRUE(is("push button", u"Copy path"_s));
    EXPECT_TRUE(is("push button", u"Open folder"_s));
    const auto names = namesIn(scripts());
    ASSERT_EQ(names.size(), 1U);
    EXPECT_THAT(names[0], ::testing::MatchesRegex("migrate-scope-rename-studio-20..-..-..\\.py"));
    const auto file = scripts() / names[0];
    EXPECT_TRUE(says(u"Migration script written to %1. Read it, then run it — the Editor never "
                     "performs a scope move itself."_s.arg(QString::fromStdString(file.string()))));
    EXPECT_EQ(modeOf(file), 0755U);
    EXPECT_EQ(modeOf(scripts()), 0700U);
    const std::string script = get(file).value_or("");
    EXPECT_THAT(script, HasSubstr("    (\"/studio/atlas\", \"/workshop/atlas\"),\n"));
    EXPECT_THAT(script, HasSubstr(std::string("MCP = \"") + WENDLOW_BUNDLE +
                                  "/Contents/MacOS/wendlow-mcp\""));
    EXPECT_EQ(folders(u"/studio/atlas"_s), before) << "the window moves nothing";
    // The row has the focus again; of what cannot be written it is told, and no half of it is
    // there.
    std::filesystem::remove_all(scripts());
    std::filesystem::create_directory_symlink(desktop.home().path(), scripts());
    desktop.press({u"Return"_s});
    ASSERT_TRUE(is("heading", u"Rename /studio"_s));
    desktop.press({u"ctrl+a"_s, u"slash"_s});
    write(u"shed"_s);
    desktop.press({u"Return"_s});
    EXPECT_TRUE(
        says(u"Couldn’t write the migration script to %1: the folder %2 is a link, and "
             "nothing is written through one"_s.arg(QString::fromStdString(file.string()),
                                                    QString::fromStdString(scripts().string()))));
}

} // namespace
} // namespace wendlow::testing
