// Every request of the contract, asked of the practice gateway in the same process.

#include "Catalogue.h"
#include "GatewayPage.h"
#include "PracticeGateway.h"
#include "TemporaryHome.h"
#include "WireCodec.h"

#include <QCoroTask>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

using namespace testing;

std::string caseOf(const GatewayResponse& response) {
    return std::visit([](const auto& which) { return std::string(which.wireName); }, response);
}

/// The page says by which case a request is answered. A refusal is always possible; there is
/// nothing that no room serves.
TEST(PracticeGatewayAnswers, AreOfTheCaseThatThePageTells) {
    const TemporaryHome home;
    const auto gateway = PracticeGateway::open(
        home / "practice.db", {.push = [](const GatewayEvent&) {}, .shutDown = [] {}});
    ASSERT_TRUE(gateway) << gateway.error();
    ASSERT_TRUE((*gateway)->fill(FillSize::day));
    InProcessClient client(*gateway);
    const Catalogue catalogue;
    const GatewayPage page;
    const std::pair<const char*, const char*> families[] = {{"read", "ReadRequest"},
                                                            {"control", "ControlRequest"},
                                                            {"notes", "NotesRequest"},
                                                            {"diagnostic", "DiagnosticRequest"}};
    for (const auto& [family, heading] : families)
        for (std::size_t index = 0; index < catalogue.of(family).size(); ++index) {
            const auto& entry = catalogue.of(family)[index];
            const std::string told = page.table(heading)[index].at(3);
            for (const auto shape : {Sample::Shape::full, Sample::Shape::bare}) {
                const std::string json = fmt::format(R"({{"{}":{{"_0":{}}}}})", family,
                                                     Sample(catalogue, shape, 0).ofCase(entry));
                SCOPED_TRACE(json);
                const auto response =
                    QCoro::waitFor(client.send(WireCodec::decodeRequest(json).value()));
                const std::string which = caseOf(response);
                EXPECT_TRUE(told.find("`" + which + "`") != std::string::npos || which == "failure")
                    << which << " where the page tells " << told;
                EXPECT_TRUE(WireCodec::encode(response));
            }
        }
}

} // namespace
} // namespace wendlow
