#include "JourneyWiring.h"
#include "MockConnector.h"

#include <QTest>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Two journeys, each in a process of its own, with one receipt and the same tools between them.
struct Beside {
    /// One that is as its last verb left it.
    static std::shared_ptr<MockConnector> tool(const char* id) {
        const auto self = std::make_shared<std::weak_ptr<MockConnector>>();
        const auto made = std::make_shared<MockConnector>(
            ConnectorIdentity{id, id, "here", "terminal"}, MockConnector::Script{.onVerb = [self] {
                const auto mock = self->lock();
                const bool on = mock->scan().state == ConnectorState::connected;
                mock->becomes(on ? ConnectorState::found : ConnectorState::connected);
            }});
        *self = made;
        return made;
    }
    struct Journey {
        explicit Journey(Beside& all)
            : apps(all.tools, std::nullopt, {}),
              wiring(
                  apps, [&all] { return all.record; },
                  [&all](const JourneyWiring::Ids& ids) { all.record = ids; }) {
            look();
        }
        void look() {
            apps.refresh();
            settle();
        }
        void plugIn(const char* id) {
            wiring.set(id, true);
            settle();
        }
        void settle() {
            EXPECT_TRUE(QTest::qWaitFor([this] { return apps.scanned() && apps.idle(); }));
        }
        ConnectedAppsModel apps;
        JourneyWiring wiring;
    };

    Connectors::List tools{tool("claude-code"), tool("codex"), tool("cursor")};
    JourneyWiring::Ids record;
};

TEST(JourneyWiring, LeavesOnRecordWhatAnotherProcessHasPutThere) {
    Beside all;
    Beside::Journey first(all);
    Beside::Journey second(all);
    first.plugIn("claude-code");
    second.plugIn("codex");
    EXPECT_THAT(all.record, ElementsAre("claude-code", "codex"));
    first.wiring.set("claude-code", false);
    first.settle();
    EXPECT_THAT(all.record, ElementsAre("codex"));
    first.plugIn("cursor");
    second.look();
    QCoro::waitFor(second.wiring.unplug(std::chrono::seconds(5)));
    EXPECT_THAT(all.record, IsEmpty());
    first.look();
    EXPECT_FALSE(first.wiring.anyConnected()) << "what the other had plugged in stays so";
}

} // namespace
} // namespace wendlow
