#include "Converge.h"
#include "MockConnector.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::shared_ptr<MockConnector> mock(const std::string& name, bool stale) {
    return std::make_shared<MockConnector>(
        ConnectorIdentity{.id = name, .name = name, .detail = "", .symbol = ""},
        MockConnector::Script{.observations = {{"f", "done"}}, .staleOwnWiring = stale});
}

TEST(Converge, installsWhatIsStaleAndLeavesTheRestAlone) {
    const auto healthy = mock("healthy", false);
    const auto stale = mock("stale", true);
    stale->becomes(ConnectorState::drifted, std::nullopt, {.refuses = true});
    const auto repairs = Converge::run({healthy, stale});
    ASSERT_EQ(repairs.size(), 1);
    EXPECT_EQ(repairs.front().name, "stale");
    EXPECT_EQ(repairs.front().outcome.result, ConnectorOutcome::Result::refused);
    EXPECT_THAT(repairs.front().outcome.observations, ElementsAre(Observation{"f", "done"}));
    EXPECT_THAT(healthy->log(), IsEmpty());
    EXPECT_THAT(stale->log(), ElementsAre("install"));
}

TEST(Connectors, standInTheirFixedOrder) {
    std::vector<std::string> ids;
    for (const auto& connector : Connectors::all("/home", "/A/Wendlow.app", "/Applications"))
        ids.push_back(connector->identity().id);
    EXPECT_THAT(ids, ElementsAre("claude-code", "codex", "cursor", "opencode"));
    EXPECT_EQ(Connectors::mcpCommand("/A/Wendlow.app"),
              "/A/Wendlow.app/Contents/MacOS/wendlow-mcp");
}

} // namespace
} // namespace wendlow
