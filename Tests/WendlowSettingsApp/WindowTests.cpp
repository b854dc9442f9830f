#include "JourneyPresenter.h"
#include "SystemLooks.h"
#include "WindowPlacing.h"
#include "WindowPresenter.h"

#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using WindowDoor::Front;

TEST(WindowPlacing, StepsAsideFiveTimesAtMost) {
    using WindowPlacing::cascaded;
    const QPoint home(100, 50);
    std::vector<QPoint> taken;
    EXPECT_EQ(cascaded(home, taken), home);
    for (int step = 0; step < 4; ++step)
        taken.push_back(home + step * QPoint(24, 24));
    EXPECT_EQ(cascaded(home, taken), QPoint(196, 146));
    taken.push_back({196, 146});
    taken.push_back({220, 170}); // the place of the fifth step is taken too
    EXPECT_EQ(cascaded(home, taken), QPoint(220, 170));
    EXPECT_EQ(WindowPlacing::centred({200, 100}, {0, 0, 1000, 500}), QPoint(400, 200));
    EXPECT_EQ(WindowPlacing::centred({1200, 900}, {10, 20, 800, 600}), QPoint(10, 20));
}

struct Windows {
    int made = 0;
    int renewed = 0;
    std::vector<std::string> posted;
    WindowPresenter presenter{[this](WindowKind) {
        ++made;
        return std::make_unique<QWindow>();
    }};
    JourneyPresenter journey{
        presenter, [this](QWindow&) { ++renewed; },
        [this](const DistributedNotification& notification,
               DistributedNotificationCenter::Delivery delivery) {
            EXPECT_EQ(notification.name, "works.fenmoor.wendlow.journey-visible");
            EXPECT_EQ(notification.userInfo, std::nullopt);
            EXPECT_EQ(delivery, DistributedNotificationCenter::Delivery::immediately);
            posted.push_back(notification.object.value());
        }};
};

TEST(WindowPresenter, BringsBackTheOneWindowOfAKindAsItWas) {
    Windows windows;
    QWindow& first = windows.presenter.present(WindowKind::settings);
    first.setGeometry(3, 4, 700, 600);
    QCoreApplication::processEvents();
    first.close();
    EXPECT_FALSE(first.isVisible());
    QWindow& again = windows.presenter.present(WindowKind::settings);
    EXPECT_EQ(&again, &first);
    EXPECT_TRUE(again.isVisible());
    EXPECT_EQ(again.geometry(), QRect(3, 4, 700, 600));
    again.showMinimized();
    windows.presenter.present(WindowKind::settings);
    EXPECT_FALSE(again.windowStates().testFlag(Qt::WindowMinimized));
    EXPECT_EQ(windows.made, 1);
    EXPECT_EQ(again.minimumSize(), QSize(560, 420)) << "what its face stands at";
    const WindowDescription& description = WindowDescriptions::of(WindowKind::settings);
    WindowDescriptions::leaveRoom(again, description, 1.5);
    EXPECT_EQ(again.minimumSize(), QSize(560, 420));
    again.resize(560, 420);
    WindowDescriptions::leaveRoom(again, description, 2);
    EXPECT_EQ(again.size(), QSize(747, 560)) << "which a small screen still has";
    const QWindow& journey = windows.presenter.present(WindowKind::onboarding);
    EXPECT_EQ(journey.minimumSize(), journey.maximumSize()) << "it cannot be resized";
}

TEST(SystemLooks, ScaleNoWordTwice) {
    EXPECT_EQ(SystemLooks::textScaleLeft(1.5, u"xcb"_s, 1.5), 1) << "the toolkit has done it";
    EXPECT_EQ(SystemLooks::textScaleLeft(1.5, u"xcb"_s, 1), 1.5);
    EXPECT_EQ(SystemLooks::textScaleLeft(1.5, u"wayland"_s, 2), 1.5)
        << "a density is none of words";
}

TEST(WindowPresenter, OpensTheEditorBesideAWindowThatStandsOnItsPlace) {
    Windows windows;
    const QWindow& settings = windows.presenter.present(WindowKind::settings);
    const QWindow& editor = windows.presenter.present(WindowKind::editor);
    EXPECT_EQ(editor.framePosition(), settings.framePosition() + QPoint(24, 24));
}

TEST(JourneyPresenter, StartsAnewInTheSameWindowAndTellsTheOthers) {
    Windows windows;
    windows.journey.present(Front::leave);
    QWindow& window = *windows.presenter.window(WindowKind::onboarding);
    EXPECT_THAT(windows.posted, ElementsAre("1"));

    window.showMinimized();
    windows.journey.present(Front::leave);
    EXPECT_TRUE(window.windowStates().testFlag(Qt::WindowMinimized)) << "it stole the focus";
    windows.journey.present(Front::bring);
    EXPECT_FALSE(window.windowStates().testFlag(Qt::WindowMinimized));
    EXPECT_THAT(windows.posted, ElementsAre("1"));
    EXPECT_EQ(windows.renewed, 0);

    for (int time = 1; time <= 2; ++time) {
        windows.posted.clear();
        window.close();
        windows.journey.present(time == 1 ? Front::leave : Front::bring);
        EXPECT_THAT(windows.posted, ElementsAre("0", "1")) << "time " << time;
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(windows.renewed, time);
    }
    EXPECT_EQ(windows.made, 1);
}

} // namespace
} // namespace wendlow
