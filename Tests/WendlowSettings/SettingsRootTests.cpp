#include "SettingsRoot.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

TEST(SettingsRoot, ListsThePanesInTheirGroupsAndShowsOneAtATime) {
    SettingsRoot root(std::make_unique<ConnectedAppsModel>(Connectors::List(), std::nullopt,
                                                           ConnectedAppsModel::Surroundings()));
    QStringList lines;
    for (const QVariant& group : SettingsRoot::groups()) {
        for (const QVariant& pane : group.toList()) {
            const QVariantMap map = pane.toMap();
            lines.append(map[QStringLiteral("title")].toString());
            EXPECT_FALSE(map[QStringLiteral("icon")].toString().isEmpty());
        }
        lines.append(QStringLiteral("-"));
    }
    EXPECT_EQ(lines.join(u'|'), QStringLiteral("General|Connected Apps|Recording Control|-|"
                                               "Local AI Classifier|Recovery|-"));

    const QSignalSpy changed(&root, &SettingsRoot::selectionChanged);
    EXPECT_EQ(root.selectionTitle(), QStringLiteral("Connected Apps"));
    root.select(QStringLiteral("Connected Apps"));
    root.select(QStringLiteral("connected"));
    EXPECT_EQ(changed.count(), 0);
    root.select(QStringLiteral("Recovery"));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(root.selection(), Pane::recovery);
}

} // namespace
} // namespace wendlow
