#include "BlockFinding.h"
#include "Drift.h"
#include "Files.h"
#include "ScanJoin.h"
#include "TemporaryHome.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const BlockFinding unreadable{BlockFinding::Unreadable{"why"}};
const BlockFinding drifted{BlockFinding::Drifted{{"one", "two"}}};
const BlockFinding foreign{BlockFinding::Foreign{{"no place"}}};
const BlockFinding fileAbsent{BlockFinding::FileAbsent{}};
const BlockFinding absent{BlockFinding::Absent{}};
const BlockFinding connected{BlockFinding::Connected{}};

TEST(ScanJoin, isConnectedOnlyWhenAllIs) {
    struct Case {
        std::vector<BlockFinding> findings;
        ConnectorState state;
    };
    const Case cases[] = {
        {{connected, connected}, ConnectorState::connected},
        {{connected, absent}, ConnectorState::drifted},
        {{drifted, fileAbsent}, ConnectorState::drifted},
        {{foreign, connected}, ConnectorState::drifted},
        {{absent, absent}, ConnectorState::found},
        {{unreadable, fileAbsent}, ConnectorState::found},
    };
    for (const auto& [findings, state] : cases)
        EXPECT_EQ(ScanJoin::state(findings), state) << text(state);
}

TEST(Observations, areFoldedInFirstSeenOrder) {
    EXPECT_THAT(folded({{"a", "x"}, {"b", "x"}, {"a", "x"}, {"a", "y"}}),
                ElementsAre(Observation{"a", "x (2 entries)"}, Observation{"b", "x"},
                            Observation{"a", "y"}));
}

TEST(Drift, saysWhyACommandIsNotTheOneExpected) {
    const testing::TemporaryHome home;
    const auto binary = testing::put(home / "wendlow-hook", "program");
    EXPECT_THAT(Drift::reasons("c", "c", binary), IsEmpty());
    EXPECT_THAT(
        Drift::reasons("/dist-prod/h", "c", home / "gone"),
        ElementsAre("the command points at a development build: /dist-prod/h",
                    "the file the command names is not on disk: " + (home / "gone").string()));
}

} // namespace
} // namespace wendlow
