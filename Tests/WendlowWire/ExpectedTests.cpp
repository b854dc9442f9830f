#include "Expected.h"
#include "GatewayWire.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

TEST(Expected, GivesTheAnswerOrSaysWhyThereIsNone) {
    EXPECT_EQ(expect<AnswerCase::Text>(AnswerCase::Text{"hello"}), AnswerCase::Text{"hello"});
    using Kind = AnswerRefusal::Kind;
    struct Row {
        GatewayResponse response;
        AnswerRefusal refusal;
        bool isFromOlderDaemon;
    };
    const std::string malformed(GatewayWire::malformedRequest);
    const Row rows[] = {
        {AnswerCase::Failure{"locked"}, {Kind::failure, "locked"}, false},
        {AnswerCase::Failure{malformed}, {Kind::failure, malformed}, true},
        {AnswerCase::Unimplemented{"mod_board"}, {Kind::unimplemented, "mod_board"}, true},
        {AnswerCase::Ok{}, {Kind::notUnderstood, "ok"}, false},
    };
    for (const auto& [response, refusal, isFromOlderDaemon] : rows) {
        EXPECT_EQ(expect<AnswerCase::Text>(response).error(), refusal) << refusal.words;
        EXPECT_EQ(refusal.isFromOlderDaemon(), isFromOlderDaemon) << refusal.words;
    }
}

} // namespace
} // namespace wendlow
