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
    bool settled() const override { return isSettled; }
    int refreshes = 0;
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
    settings.root.refresh();
    EXPECT_EQ(settings.connected->refreshes, 1);
    EXPECT_EQ(settings.privacy->refreshes, 0) << "nobody sees it";
    settings.root.select(Pane::privacy);
    settings.root.refresh();
    EXPECT_EQ(settings.privacy->refreshes, 1);
    settings.root.select(Pane::recovery);
    settings.root.refresh();
    settings.privacy->isSettled = false;
    EXPECT_FALSE(settings.root.settled());
    settings.privacy->isSettled = true;
    EXPECT_TRUE(settings.root.settled());
}

TEST(SettingsRoot, GivesAFaceItsModelOrWhatItIsCalled) {
    Root settings;
    const QSignalSpy changes(&settings.root, &SettingsRoot::selectionChanged);
    settings.root.select(Pane::connected);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(settings.root.properties(),
              (QVariantMap{{u"model"_s, QVariant::fromValue<PaneModel*>(settings.connected)}}));
    settings.root.open(99);
    EXPECT_EQ(settings.root.selection(), Pane::recovery);
    EXPECT_EQ(settings.root.properties(), (QVariantMap{{u"title"_s, u"Recovery"_s}}));
    settings.root.open(-1);
    EXPECT_EQ(settings.root.selection(), Pane::privacy);
    EXPECT_EQ(changes.count(), 2);
}

} // namespace
} // namespace wendlow
