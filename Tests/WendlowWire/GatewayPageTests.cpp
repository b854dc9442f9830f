// Keeps the examples of docs/gateway.md true. Its tables are what CatalogueTests walks.

#include "GatewayEvent.h"
#include "GatewayPage.h"
#include "GatewayRequest.h"
#include "GatewayResponse.h"
#include "WireCodec.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using testing::GatewayPage;

/// Each example is what our own side would write, to the letter.
template<class Decode> void expectExamplesToReturn(const std::string& kind, Decode decode) {
    const GatewayPage page;
    for (const std::string& example : page.examples(kind)) {
        const auto value = decode(example);
        ASSERT_TRUE(value) << example << ": " << value.error().sentence;
        EXPECT_EQ(WireCodec::encode(*value), example);
    }
}

TEST(GatewayPage, GivesExamplesThatRead) {
    expectExamplesToReturn("request", WireCodec::decodeRequest);
    expectExamplesToReturn("answer", WireCodec::decodeResponse);
    expectExamplesToReturn("event", WireCodec::decodeEvent);
}

TEST(GatewayPage, GivesTheSentencesOfWhatDoesNotRead) {
    const GatewayPage page;
    for (const GatewayPage::Row& row : page.table("What does not read")) {
        const auto request = WireCodec::decodeRequest(GatewayPage::unquoted(row.at(0)));
        ASSERT_FALSE(request) << row.at(0);
        EXPECT_EQ(request.error().sentence, row.at(1));
    }
}

} // namespace
} // namespace wendlow
