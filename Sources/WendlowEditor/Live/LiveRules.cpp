#include "Live/LiveRules.h"

#include "Live/AnswerWords.h"
#include "Live/LiveWrite.h"

#include <utility>

namespace wendlow {

namespace {

namespace Gap = EditorRulesGapCase;

/// The card's part of a picture, which is a card or a gap.
EditorRulesPicture cardOf(const std::string& scope, GatewayResponse response) {
    EditorRulesPicture made;
    if (std::holds_alternative<AnswerCase::StandingWalk>(response)) {
        made.gap = Gap::NothingCompiled{scope};
        return made;
    }
    auto answer = expect<AnswerCase::RulesCard>(std::move(response));
    if (!answer)
        made.gap = Gap::Failed{AnswerWords::of(answer.error(), AnswerWords::Question::rulesCard)};
    else if (answer->scope != scope)
        made.gap = Gap::ScopeMismatch{.asked = scope, .served = answer->scope};
    else
        made.card = EditorRulesCard::parse(scope, std::move(answer->card));
    return made;
}

EditorRulesStack stackOf(RulesWalk walk) {
    EditorRulesStack made{.path = std::move(walk.path)};
    made.overflow = walk.overflow;
    for (RulesWalk::Level& level : walk.levels) {
        auto& lines = made.levels.emplace_back(EditorRulesStack::Level{level.path, {}}).rules;
        for (std::string& rule : level.rules)
            lines.push_back({.id = {}, .text = std::move(rule), .scope = level.path});
    }
    return made;
}

/// What goes wrong with the walk is told only where a card is shown: without one there is a gap
/// already.
void addWalk(EditorRulesPicture& picture, const std::string& scope, GatewayResponse response) {
    if (auto* const walk = std::get_if<AnswerCase::StandingWalk>(&response)) {
        if (!walk->_0)
            picture.stack = EditorRulesStack{.path = scope};
        else if (walk->_0->path == scope)
            picture.stack = stackOf(*std::move(walk->_0));
        else if (picture.card)
            picture.gap = Gap::ScopeMismatch{.asked = scope, .served = walk->_0->path};
    } else if (const auto* const failed = std::get_if<AnswerCase::Failure>(&response)) {
        if (picture.card)
            picture.gap = Gap::Failed{failed->message};
    }
}

} // namespace

LiveRules::LiveRules(EditorLink& link, LivePages& pages, const LiveScopes& scopes, LiveTell tell)
    : m_link(link), m_pages(pages), m_scopes(scopes), m_tell(std::move(tell)) {}

QCoro::Task<EditorRulesPicture> LiveRules::rulesPicture(std::string scope) {
    const Lifetime::Watch life = m_life.watch();
    EditorRulesPicture picture;
    if (m_scopes.rootScope().find(scope) != nullptr)
        picture = co_await compiled(scope);
    else
        picture.gap = Gap::UnaddressableScope{scope};
    if (life.expired())
        co_return EditorRulesPicture();
    EditorAsk ask = EditorRulesPicture::filedAsk(scope);
    picture.takeFiled(co_await m_pages.query(std::move(ask), EditorAsker::beside));
    co_return picture;
}

/// The card and the walk.
QCoro::Task<EditorRulesPicture> LiveRules::compiled(std::string scope) {
    const Lifetime::Watch life = m_life.watch();
    EditorRulesPicture picture = cardOf(scope, co_await standing(scope, true));
    if (!life.expired())
        addWalk(picture, scope, co_await standing(scope, false));
    co_return picture;
}

QCoro::Task<GatewayResponse> LiveRules::standing(std::string scope, bool card) {
    ReadCase::StandingRules question;
    question.card = card;
    question.scope = std::move(scope);
    const ReadRequest request = std::move(question);
    EditorLink::Reply reply = co_await m_link.send(request, EditorLink::Lane::now);
    co_return std::move(reply.response);
}

QCoro::Task<EditorWriteOutcome> LiveRules::editRuleLine(std::string id, std::string from,
                                                        std::string to) {
    const Lifetime::Watch life = m_life.watch();
    const NotesRequest request = NotesCase::Patch{.id = std::move(id),
                                                  .field = "text",
                                                  .find = std::move(from),
                                                  .replace = std::move(to),
                                                  .replaceAll = false};
    EditorWriteOutcome outcome = co_await LiveWrite::send(m_link, request);
    if (outcome.ok() && !life.expired())
        m_tell(EditorChange::generation);
    co_return outcome;
}

QCoro::Task<EditorWriteOutcome> LiveRules::addRule(std::string text, std::string why,
                                                   EditorRulePlacement placement,
                                                   std::string scope) {
    const Lifetime::Watch life = m_life.watch();
    if (!placement.isLegal())
        co_return EditorWriteOutcome::refused(EditorRulesFiles::refusal(*placement.file));
    NotesCase::Write note{.text = std::move(text),
                          .why = std::move(why),
                          .writer = "wendlow-editor",
                          .type = "rule",
                          .path = std::move(scope)};
    for (const auto& [key, value] : placement.filters()) {
        if (!note.filters)
            note.filters.emplace();
        note.filters->emplace(key, value);
    }
    EditorWriteOutcome outcome = co_await LiveWrite::send(m_link, std::move(note));
    if (outcome.ok() && !life.expired()) {
        m_tell(EditorChange::generation);
        co_await m_pages.baseline();
    }
    co_return outcome;
}

} // namespace wendlow

#include "moc_LiveRules.cpp"
