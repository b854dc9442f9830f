#include "FocusKeeper.h"
#include "JourneySnapshots.h"
#include "MainMenu.h"
#include "ThemeSource.h"
#include "WindowFactory.h"
#include "WordsInPlace.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTest>

#include <gmock/gmock.h>

#include <algorithm>

#include <tuple>

namespace wendlow {
namespace {

using namespace Qt::StringLiterals;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

/// The journey's own window over a made-up Mac, which is looked at many times a second.
class JourneyFace : public ::testing::Test {
protected:
    static constexpr JourneyModel::Limits quick = {.poll = std::chrono::milliseconds(10)};

    void SetUp() override {
        QAccessible::setActive(true);
        QObject::connect(&factory, &WindowFactory::warned, &factory,
                         [this](const QString& words) { warnings.append(words); });
    }
    void TearDown() override {
        window.reset();
        EXPECT_EQ(warnings.join(u'\n').toStdString(), "");
    }

    void open() {
        mac.apps().scan();
        root = std::make_unique<JourneyRoot>(std::make_unique<JourneyModel>(mac.contacts(), quick));
        window.reset(static_cast<QQuickWindow*>(factory.make(WindowKind::onboarding).release()));
        WindowDescriptions::dress(*window, WindowDescriptions::of(WindowKind::onboarding));
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        ASSERT_TRUE(QTest::qWaitFor([this] { return root->isStarted(); }));
    }
    QQuickItem& content() { return *window->property("content").value<QQuickItem*>(); }

    /// Names of everything that a screen reader finds in the window.
    std::vector<std::string> spoken() const {
        std::vector<std::string> names;
        gather(QAccessible::queryAccessibleInterface(window.get()), names);
        return names;
    }
    static bool draws(const QQuickItem& item, const QString& word) {
        return item.property("text").toString() == word ||
               std::ranges::any_of(item.childItems(),
                                   [&](const QQuickItem* child) { return draws(*child, word); });
    }
    /// What the keys go to; empty where a person would see the focus nowhere.
    QString focused() const {
        QQuickItem* const item = window->activeFocusItem();
        if (!item || !item->isVisible() || !item->isEnabled() || !FocusKeeper::shows(*item))
            return {};
        return QAccessible::queryAccessibleInterface(item)->text(QAccessible::Name);
    }
    ::testing::AssertionResult comesTo(const QString& screen, const QString& focus) {
        const bool came =
            QTest::qWaitFor([&] { return root->screen() == screen && focused() == focus; }, 3000);
        return came ? ::testing::AssertionSuccess()
                    : ::testing::AssertionFailure() << root->screen().toStdString() << " with \""
                                                    << focused().toStdString() << "\"";
    }
    void press(std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys)
            QTest::keyClick(window.get(), key);
    }
    /// As a hand that rests on the key: the keyboard lets it go and presses it, and says so.
    void hold(Qt::Key key, const QString& letter) {
        const auto send = [&](QEvent::Type type, bool again) {
            QKeyEvent event(type, key, Qt::NoModifier, letter, again);
            QCoreApplication::sendEvent(window.get(), &event);
        };
        send(QEvent::KeyPress, false);
        for (int time = 0; time < 3; ++time) {
            send(QEvent::KeyRelease, true);
            send(QEvent::KeyPress, true);
        }
        send(QEvent::KeyRelease, false);
    }

    PosedJourney mac;
    std::unique_ptr<JourneyRoot> root;
    QStringList warnings;
    MainMenu menu;
    WindowFactory factory{menu,
                          [this](WindowKind) {
                              return WindowFactory::Content{
                                  u"WendlowOnboarding/JourneyFace.qml"_s,
                                  {{u"root"_s, QVariant::fromValue(root.get())}}};
                          },
                          [](ThemeSource& looks, WindowFactory::Darkness) {
                              looks.setDark(true);
                              looks.setReduceMotion(true);
                          }};
    std::unique_ptr<QQuickWindow> window;

private:
    static void gather(QAccessibleInterface* thing, std::vector<std::string>& names) {
        for (int at = 0; thing && at < thing->childCount(); ++at) {
            QAccessibleInterface* const child = thing->child(at);
            if (!child || child->state().invisible)
                continue;
            names.push_back(child->text(QAccessible::Name).toStdString() +
                            child->text(QAccessible::Description).toStdString());
            gather(child, names);
        }
    }
};

TEST_F(JourneyFace, StandsInEveryStateAndSizeWithTheFocusInSight) {
    open();
    ThemeSource& looks = factory.looksOf(WindowKind::onboarding);
    window->setMinimumSize({});
    window->setMaximumSize({4000, 4000});
    JourneySnapshots states(content(), *root, [](const QString&) {});
    content().setProperty("posing", false);
    int posed = 0;
    states.pose([&](const QString& state, bool) {
        ++posed;
        EXPECT_TRUE(QTest::qWaitFor([&] { return !focused().isEmpty(); }, 2000))
            << state.toStdString() << ": the keys go nowhere";
        for (const auto& [scale, size] :
             {std::pair(1.0, QSize(800, 620)), std::pair(1.0, QSize(560, 420)),
              std::pair(1.25, QSize(700, 525)), std::pair(1.5, QSize(1200, 930)),
              std::pair(1.5, QSize(800, 600))}) {
            looks.setTextScale(scale);
            window->resize(size);
            QTest::qWait(30);
            EXPECT_EQ(testing::WordsInPlace::faults(content()).join(u'\n').toStdString(), "")
                << state.toStdString() << " at " << scale << " in " << size.width();
        }
        looks.setTextScale(1);
        window->resize(800, 620);
    });
    EXPECT_GT(posed, 20);
}

TEST_F(JourneyFace, IsWalkedByReturnTabAndSpaceAlone) {
    mac.grantsWhatIsAsked = true;
    mac.warm = false;
    open();
    EXPECT_TRUE(comesTo(u"welcome"_s, root->termsTick()));
    press({Qt::Key_Space, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space, Qt::Key_Tab});
    EXPECT_TRUE(comesTo(u"welcome"_s, u"Setup Wendlow"_s));
    EXPECT_FALSE(root->autoInstall());
    press({Qt::Key_Return});
    for (const auto& [screen, button] : {std::pair(u"screenrec"_s, u"Ask for Screen Recording"_s),
                                         std::pair(u"accessibility"_s, u"Ask for Accessibility"_s),
                                         std::pair(u"mic"_s, u"Allow microphone"_s)}) {
        EXPECT_TRUE(comesTo(screen, button));
        press({Qt::Key_Return});
        EXPECT_TRUE(comesTo(screen, u"Next"_s)) << "the button has gone";
        press({Qt::Key_Return});
    }
    EXPECT_TRUE(comesTo(u"recovery"_s, root->wroteItDownTick()));
    press({Qt::Key_Space, Qt::Key_Tab});
    EXPECT_TRUE(comesTo(u"recovery"_s, u"Back"_s));
    press({Qt::Key_Tab});
    EXPECT_TRUE(comesTo(u"recovery"_s, u"Next"_s));
    press({Qt::Key_Return});
    ASSERT_TRUE(QTest::qWaitFor([&] { return root->screen() == u"ais"_s; }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return focused().startsWith(u"Claude Code"_s); }))
        << focused().toStdString();
    while (focused() != u"Next"_s)
        press({Qt::Key_Tab});
    press({Qt::Key_Return});
    EXPECT_TRUE(comesTo(u"models"_s, u"Continue"_s));
    press({Qt::Key_Return});
    EXPECT_TRUE(comesTo(u"warming"_s, u"One moment, getting the assistant ready…"_s));
    mac.warm = true;
    EXPECT_TRUE(comesTo(u"hello"_s, u"listening for your AI"_s));
    mac.helloReceived = true;
    EXPECT_TRUE(comesTo(u"hello"_s, u"Close setup"_s));
    press({Qt::Key_Return});
    EXPECT_TRUE(comesTo(u"done"_s, u"Quit setup"_s));
}

TEST_F(JourneyFace, PressesOnceWhatIsHeldAndWritesItAsOften) {
    open();
    ASSERT_TRUE(comesTo(u"welcome"_s, root->termsTick()));
    hold(Qt::Key_Return, u"\r"_s);
    EXPECT_TRUE(root->agreedToTerms());
    hold(Qt::Key_Space, u" "_s);
    EXPECT_FALSE(root->agreedToTerms());
    struct Case {
        const char* field;
        Qt::Key key;
        QString letter;
        QString written;
    };
    const Case cases[] = {{"TextInput", Qt::Key_Space, u" "_s, u"    "_s},
                          {"TextEdit", Qt::Key_Space, u" "_s, u"    "_s},
                          {"TextEdit", Qt::Key_Return, u"\r"_s, u"\n\n\n\n"_s}};
    for (const auto& [field, key, letter, written] : cases) {
        QQmlComponent component(qmlEngine(&content()));
        component.setData(QByteArray("import QtQuick\n") + field + " {}", {});
        const std::unique_ptr<QQuickItem> made(qobject_cast<QQuickItem*>(component.create()));
        ASSERT_TRUE(made);
        made->setParentItem(&content());
        made->forceActiveFocus();
        hold(key, letter);
        EXPECT_EQ(made->property("text").toString(), written) << field;
    }
}

TEST_F(JourneyFace, ShowsTheWordsToTheEyeAlone) {
    mac.screen = JourneyScreen::recoveryKey;
    open();
    ASSERT_TRUE(QTest::qWaitFor([&] { return root->phrase().size() == 12; }));
    const QString tick = root->wroteItDownTick();
    ASSERT_TRUE(comesTo(u"recovery"_s, tick));
    EXPECT_THAT(spoken(), Not(Contains(HasSubstr("amber"))));
    EXPECT_THAT(spoken(), Contains(HasSubstr("step 3 of 6")));
    EXPECT_TRUE(draws(content(), u"amber"_s));
    press({Qt::Key_Space});
    ASSERT_TRUE(QTest::qWaitFor([&] { return root->isPrimaryEnabled(); }));
    root->press();
    ASSERT_TRUE(QTest::qWaitFor([&] { return root->screen() == u"ais"_s; }));
    EXPECT_EQ(root->phrase(), QStringList());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !draws(content(), u"amber"_s); }));
}

TEST_F(JourneyFace, HasTheFocusWhereItSaysThatTheDownloadGoesOn) {
    mac.screen = JourneyScreen::localModels;
    mac.cancel = PosedJourney::Answer::refused;
    open();
    ASSERT_TRUE(comesTo(u"models"_s, u"Continue"_s));
    press({Qt::Key_Backtab, Qt::Key_Return});
    ASSERT_TRUE(comesTo(u"models"_s, u"Keep going"_s));
    press({Qt::Key_Tab, Qt::Key_Return});
    ASSERT_TRUE(comesTo(u"models"_s, root->cancelFailedButton()));
    QTest::qWait(50); // the other sheet has gone by then
    EXPECT_TRUE(comesTo(u"models"_s, root->cancelFailedButton()));
    press({Qt::Key_Return});
    EXPECT_FALSE(root->hasCancelFailed());
}

TEST_F(JourneyFace, StaysWhileEverythingIsTakenBack) {
    mac.screen = JourneyScreen::localModels;
    open();
    ASSERT_TRUE(comesTo(u"models"_s, u"Continue"_s));
    press({Qt::Key_Backtab});
    EXPECT_TRUE(comesTo(u"models"_s, u"Cancel install"_s));
    press({Qt::Key_Return});
    EXPECT_TRUE(comesTo(u"models"_s, u"Keep going"_s)) << "the safe one has the focus";
    press({Qt::Key_Return});
    EXPECT_TRUE(comesTo(u"models"_s, u"Cancel install"_s)) << "and gives it back";
    press({Qt::Key_Return});
    EXPECT_TRUE(comesTo(u"models"_s, u"Keep going"_s));
    press({Qt::Key_Tab, Qt::Key_Space});
    EXPECT_TRUE(comesTo(u"models"_s, root->cancellingWords()));
    press({Qt::Key_Escape});
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible() && root->isCancelling());
}

} // namespace
} // namespace wendlow
