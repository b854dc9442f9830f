#include "SettingsRoot.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using namespace Qt::StringLiterals;

class CountingModel final : public PaneModel {
public:
    void refresh() override { ++refreshes; }
    void left() override { ++leavings; }
    bool settled() const override { return isSettled; }
    int refreshes = 0;
    int leavings = 0;
    bool isSettled = true;
};

struct Root {
    CountingModel* privacy = nullptr;
    CountingModel* connected = nullptr;
    SettingsRoot root{models()};

    Panes::Models models() {
        Panes::Models models;
        const auto add = [&models](Pane pane) {
            auto model = std::make_unique<CountingModel>();
            CountingModel* const kept = model.get();
            models.emplace(pane, std::move(model));
            return kept;
        };
        privacy = add(Pane::privacy);
        connected = add(Pane::connected);
        return models;
    }
};

TEST(SettingsRoot, ReadsAgainWhatThePersonComesBackTo) {
    Root settings;
    settings.root.daemonCame();
    EXPECT_EQ(settings.privacy->refreshes, 0) << "nobody is there yet";
    settings.root.refresh();
    settings.root.daemonCame();
    EXPECT_EQ(settings.privacy->refreshes, 2);
    EXPECT_EQ(settings.connected->refreshes, 0) << "nobody sees it";
    settings.privacy->isSettled = false;
    EXPECT_FALSE(settings.root.settled());
    settings.root.select(Pane::connected);
    EXPECT_TRUE(settings.root.settled());
    EXPECT_EQ(settings.privacy->leavings, 1);
    settings.root.leave();
    EXPECT_EQ(settings.connected->leavings, 1);
    settings.root.daemonCame();
    EXPECT_EQ(settings.connected->refreshes, 0) << "its window is closed";
}

TEST(SettingsRoot, GivesAFaceItsModelOrWhatItIsCalled) {
    Root settings;
    const QSignalSpy changes(&settings.root, &SettingsRoot::selectionChanged);
    settings.root.select(Pane::privacy);
    EXPECT_EQ(changes.count(), 0) << "it opens on General";
    settings.root.select(Pane::connected);
    EXPECT_EQ(settings.root.properties(),
              (QVariantMap{{u"model"_s, QVariant::fromValue<PaneModel*>(settings.connected)}}));
    settings.root.open(99);
    EXPECT_EQ(settings.root.selection(), Pane::recovery);
    settings.root.select(Pane::classifier);
    EXPECT_EQ(settings.root.properties()[u"status"_s].toMap()[u"word"_s], u"Running"_s);
    settings.root.open(-1);
    EXPECT_EQ(settings.root.selection(), Pane::privacy);
    EXPECT_EQ(changes.count(), 4);
    CountingModel posed;
    settings.root.pose(&posed);
    EXPECT_EQ(settings.root.properties()[u"model"_s].value<PaneModel*>(), &posed);
    settings.root.pose(nullptr);
}

} // namespace
} // namespace wendlow
