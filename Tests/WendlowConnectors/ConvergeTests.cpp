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

TEST(MockConnector, runsCallbacksAroundTheScanAndOutsideOfItsLock) {
    MockConnector* self = nullptr;
    MockConnector connector(
        {.id = "m", .name = "M", .detail = "", .symbol = ""},
        {.onScan = [&] { self->becomes(ConnectorState::connected); },
         .onVerb = [&] { self->becomes(ConnectorState::found); },
         .afterScan = [&] { self->becomes(ConnectorState::drifted, Observations{{"f", "t"}}); }});
    self = &connector;
    // What came before the scan is in its report, what came after it is not.
    const ScanReport report = connector.scan();
    EXPECT_EQ(report.state, ConnectorState::connected);
    EXPECT_THAT(report.observations, IsEmpty());
    connector.becomes(ConnectorState::drifted, std::nullopt,
                      {.verbObservations = Observations{{"v", "said"}},
                       .backups = std::vector<std::filesystem::path>{"/copy"}});
    const ConnectorOutcome outcome = connector.remove();
    EXPECT_EQ(outcome.result, ConnectorOutcome::Result::changed);
    EXPECT_THAT(outcome.observations, ElementsAre(Observation{"v", "said"}));
    EXPECT_THAT(outcome.backups, ElementsAre("/copy"));
    EXPECT_THAT(connector.log(), ElementsAre("scan", "remove"));
}

TEST(Connectors, standInTheirFixedOrder) {
    std::vector<std::string> ids;
    for (const auto& connector : Connectors::all("/home", "/A/Wendlow.app", "/Applications"))
        ids.push_back(connector->identity().id);
    EXPECT_THAT(ids, ElementsAre("claude-code", "codex"));
    EXPECT_EQ(Connectors::mcpCommand("/A/Wendlow.app"),
              "/A/Wendlow.app/Contents/MacOS/wendlow-mcp");
}

} // namespace
} // namespace wendlow
