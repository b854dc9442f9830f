#include "ConnectedAppsModel.h"
#include "SettingsApplication.h"
#include "UnimplementedGateway.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using namespace Qt::StringLiterals;

/// The whole application without a session bus.
struct Program {
    DistributedNotificationCenter silent;
    SettingsApplication application{
        {.followLooks = [](ThemeSource&, WindowFactory::Darkness) {},
         .notifications = silent,
         .setupLog = [](const std::string&) {},
         .client = std::make_shared<InProcessClient>(std::make_shared<UnimplementedGateway>())}};

    QWindow& inFront(WindowKind kind) {
        QWindow& window = application.present(kind);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        return window;
    }
    bool hasWorld() { return application.mainMenu().contains(u"world"_s); }
    QString lines(const char* key) {
        QStringList titles;
        for (const QVariant& line :
             application.mainMenu().menus().constLast().toMap()[u"items"_s].toList())
            if (line.toMap()[QLatin1String(key)].toBool())
                titles.append(line.toMap()[u"title"_s].toString());
        return titles.join(u' ');
    }
};

/// What the toolkit says as another program takes the focus.
void leaveForAnotherProgram() {
    Q_EMIT qGuiApp->focusWindowChanged(nullptr);
}

TEST(SettingsApplication, KeepsTheMenusOfTheWindowInFrontAndClosesThatWithoutTheFocus) {
    // The last of them are there whatever is in front, with the line between.
    const QString windows = u" Settings Memories Stats First Run"_s;
    Program program;
    const QWindow& stats = program.inFront(WindowKind::stats);
    EXPECT_FALSE(program.hasWorld());
    QWindow& bench = program.inFront(WindowKind::rowsBench);
    EXPECT_TRUE(program.hasWorld());
    leaveForAnotherProgram();
    EXPECT_TRUE(program.hasWorld());
    EXPECT_EQ(program.lines("enabled"), u"Close Minimize "_s + windows);
    bench.showMinimized();
    EXPECT_FALSE(program.hasWorld()) << "Stats is what is left on the screen";
    bench.showNormal();
    EXPECT_TRUE(program.hasWorld());

    const QWindow& about = program.application.showAbout();
    // A panel counts as active while its window is.
    ASSERT_TRUE(QTest::qWaitFor([&] { return QGuiApplication::focusWindow() == &about; }));
    const auto close = [&] {
        leaveForAnotherProgram();
        program.application.mainMenu().trigger(u"window"_s, u"performClose"_s);
    };
    EXPECT_TRUE(program.hasWorld()) << "a panel stands for its window";
    close();
    EXPECT_FALSE(about.isVisible());
    EXPECT_TRUE(bench.isVisible() && program.hasWorld());
    close();
    EXPECT_FALSE(bench.isVisible() || program.hasWorld());
    close();
    EXPECT_FALSE(stats.isVisible());
    EXPECT_EQ(program.lines("enabled"), windows);
    close();
}

TEST(SettingsApplication, ScansWhenAPersonIsBackInSettings) {
    Program program;
    program.application.models().openSettingsOn(Pane::connected);
    program.inFront(WindowKind::settings);
    auto* const model = qobject_cast<ConnectedAppsModel*>(
        program.application.models().settings().model(Pane::connected));
    ASSERT_TRUE(QTest::qWaitFor([&] { return model->settled(); }));
    const QSignalSpy landed(model, &ConnectedAppsModel::landed);
    program.inFront(WindowKind::stats);
    QTest::qWait(20);
    EXPECT_EQ(landed.count(), 0);
    program.inFront(WindowKind::settings);
    EXPECT_TRUE(QTest::qWaitFor([&] { return landed.count() == 1; }));
}

} // namespace
} // namespace wendlow
