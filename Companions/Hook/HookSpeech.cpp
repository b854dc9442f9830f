#include "HookSpeech.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <boost/json/serialize.hpp>
#include <fmt/format.h>

#include "HookText.h"

namespace wendlow {

namespace {

namespace json = boost::json;
using Shape = HookHarness::Shape;
using Block = HookSpeech::Block;

constexpr std::string_view rulesTag = "wendlow-rules";
constexpr std::string_view indexTag = "wendlow-index";
constexpr std::string_view recallTag = "wendlow-memory";

/// The answers of one round, taken by the case that is expected.
class Answers {
public:
    Answers(std::vector<HookAnswer> answers, std::vector<std::string>& faults)
        : m_answers(std::move(answers)), m_faults(faults) {
        for (const HookAnswer& answer : m_answers)
            if (!answer)
                note(answer.error());
            else if (const auto* const failure = std::get_if<AnswerCase::Failure>(&*answer))
                note(failure->message);
            else if (const auto* const older = std::get_if<AnswerCase::Unimplemented>(&*answer))
                note(fmt::format("the gateway is older than {}", older->verb));
    }

    /// None where there is no such answer, or none of this case.
    template<class Case> const Case* as(std::optional<std::size_t> place) const {
        const GatewayResponse* const answer = any(place);
        return answer == nullptr ? nullptr : std::get_if<Case>(answer);
    }
    const GatewayResponse* any(std::optional<std::size_t> place) const {
        return place && m_answers[*place] ? &*m_answers[*place] : nullptr;
    }

private:
    void note(const std::string& fault) {
        if (std::ranges::find(m_faults, fault) == m_faults.end())
            m_faults.push_back(fault);
    }

    std::vector<HookAnswer> m_answers;
    std::vector<std::string>& m_faults;
};

/// Cut by its share, and set between its tags.
std::string laid(const Block& block, std::size_t most, const HookHarness& harness) {
    const std::size_t tags = 2 * block.tag.size() + 7;
    if (block.text.empty() || most <= tags)
        return {};
    // A mark that is taken for another character has the same units, but more bytes.
    std::string text = HookText::block(block.tag, block.text);
    if (HookText::size(text, harness) <= most)
        return text;
    for (std::size_t room = most - tags;; room -= room / 16 + 1) {
        text = HookText::block(block.tag, HookText::within(block.text, room, harness));
        if (HookText::size(text, harness) <= most || room < 16)
            return HookText::size(text, harness) <= most ? text : std::string();
    }
}

} // namespace

HookSpeech HookSpeech::gather(HookSlot slot, const HookHarness& harness, const HookEvent& event,
                              Counting counting, const HookAsk& ask) {
    const bool all = slot == HookSlot::prompt;
    const bool hasIndex = all || slot == HookSlot::index;
    std::vector<GatewayRequest> questions;
    std::optional<std::size_t> cardPlace, walkPlace, primedPlace;
    const ReadCase::StandingRules rules{.cwd = event.cwd,
                                        .writer = std::string(harness.name),
                                        .session = event.session,
                                        .transcript = event.transcript,
                                        .card = true};
    if (hasIndex || slot == HookSlot::rules) {
        cardPlace = questions.size();
        questions.emplace_back(ReadRequest(rules));
    }
    if (hasIndex) { // where no rule is delivered, the card does not tell the scope
        walkPlace = questions.size();
        ReadCase::StandingRules walk = rules;
        walk.card = false;
        questions.emplace_back(ReadRequest(std::move(walk)));
    }
    if ((all || slot == HookSlot::recall) && event.prompt) {
        primedPlace = questions.size();
        questions.emplace_back(
            ReadRequest(ReadCase::Primed{.prompt = *event.prompt,
                                         .cwd = event.cwd,
                                         .writer = std::string(harness.name),
                                         .session = event.session,
                                         .transcript = event.transcript,
                                         .countsPrompt = counting == Counting::counts}));
    }
    HookSpeech speech;
    if (questions.empty())
        return speech;
    const Answers first(ask(questions), speech.faults);
    const auto* const card = first.as<AnswerCase::RulesCard>(cardPlace);
    const auto* const walk = first.as<AnswerCase::StandingWalk>(walkPlace);
    if (card != nullptr)
        speech.scope = card->scope;
    else if (walk != nullptr && walk->_0)
        speech.scope = walk->_0->path;
    if (all || slot == HookSlot::rules)
        if (const GatewayResponse* const answer = first.any(cardPlace))
            speech.blocks.push_back({rulesTag, HookText::rules(*answer),
                                     "the standing rules of the scope that the folder or the "
                                     "session has, at every prompt"});
    if (hasIndex && !speech.scope.empty()) {
        const std::vector<GatewayRequest> second{ReadRequest(ReadCase::ListTypes{speech.scope})};
        const Answers types(ask(second), speech.faults);
        if (const auto* const counted = types.as<AnswerCase::KindTypes>(0))
            speech.blocks.push_back({indexTag, HookText::index(speech.scope, *counted, card),
                                     "what is filed in that scope and below it"});
    }
    if (const auto* const primed = first.as<AnswerCase::Primed>(primedPlace))
        speech.blocks.push_back(
            {recallTag, HookText::recall(*primed),
             fmt::format("{} of the memories have enough to do with the prompt and were not told "
                         "to this session before",
                         primed->_0.size())});
    return speech;
}

std::string HookSpeech::text(const HookHarness& harness) const {
    const auto share = [&](std::string_view tag) {
        const std::size_t part = tag == indexTag ? 6 : 3;
        return blocks.size() > 1 ? harness.most / part : harness.most;
    };
    std::size_t left = harness.most;
    const auto take = [&](const Block& block, std::size_t most) {
        std::string text = laid(block, std::min(most, left), harness);
        left -= HookText::size(text, harness);
        return text;
    };
    std::vector<std::string> laidOut(blocks.size());
    const auto lay = [&](bool rules) {
        for (std::size_t place = 0; place < blocks.size(); ++place)
            if ((blocks[place].tag == rulesTag) == rules)
                laidOut[place] = take(blocks[place], rules ? left : share(blocks[place].tag));
    };
    lay(false);
    lay(true);
    std::string text;
    for (const std::string& one : laidOut)
        text += one;
    return text;
}

namespace HookEnvelope {

std::string context(const HookHarness& harness, std::string_view text) {
    if (text.empty())
        return {};
    switch (harness.shape) {
    case Shape::claudeCode:
        return json::serialize(
            json::object{{"hookSpecificOutput",
                          {{"hookEventName", "UserPromptSubmit"}, {"additionalContext", text}}}});
    case Shape::cursor:
        return json::serialize(json::object{{"continue", true}, {"additional_context", text}});
    case Shape::openCode:
        return json::serialize(json::object{{"context", text}});
    }
    return {};
}

std::string arguments(const HookHarness& harness, const HookEvent& event) {
    const bool isCursor = harness.shape == Shape::cursor;
    if (!event.session || !event.input ||
        !event.tool.starts_with(isCursor ? "MCP:" : "mcp__wendlow__"))
        return {};
    json::object input = *event.input;
    input["_wendlow_session"] = *event.session;
    if (event.subagent)
        input["_wendlow_subagent"] = *event.subagent;
    if (isCursor)
        return json::serialize(json::object{{"updated_input", std::move(input)}});
    return json::serialize(
        json::object{{"hookSpecificOutput",
                      {{"hookEventName", "PreToolUse"}, {"updatedInput", std::move(input)}}}});
}

} // namespace HookEnvelope
} // namespace wendlow
