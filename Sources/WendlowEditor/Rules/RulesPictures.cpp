#include "Rules/RulesFaceModel.h"

#include <memory>

#include <fmt/format.h>

namespace wendlow {

namespace {

using World = FacePicture::World;
using Widths = FacePicture::Widths;

namespace Gap = EditorRulesGapCase;

/// As many rules as a picture sees, and one more.
EditorRulesPicture crowded(EditorRulesPicture picture) {
    EditorRuleFileGroup group{.name = "inline rules"};
    for (int number = 1; number <= EditorRulesPicture::mostFiled; ++number)
        group.rules.push_back({.id = fmt::format("m{}", number),
                               .text = fmt::format("Rule number {} of very many", number),
                               .scope = "/work/harbour"});
    picture.card.reset();
    picture.stack.reset();
    picture.gap = Gap::NothingCompiled{"/work/harbour"};
    picture.filed = {std::move(group)};
    picture.filedTotal = EditorRulesPicture::mostFiled + 1;
    return picture;
}

/// What can be wrong at once with a card that is shown.
EditorRulesPicture troubled(EditorRulesPicture picture) {
    picture.card->warning = "⚠ Wendlow — 1 rule here has a rules-file tag that names no module and "
                            "reaches no session.";
    picture.stack->overflow = 12;
    picture.filed.push_back({.name = "old-habits",
                             .tier = EditorRuleTier::legacy,
                             .rules = {{.id = "m1", .text = "Say which pier, not which side"}}});
    picture.filed = EditorRulesFiles::ordered(std::move(picture.filed));
    return picture;
}

EditorRulesPicture withoutCard(EditorRulesPicture picture, EditorRulesGap gap) {
    picture.card.reset();
    picture.stack.reset();
    picture.gap = std::move(gap);
    return picture;
}

} // namespace

/// The made-up worlds have no daemon that could go wrong, so that what one may answer is put in
/// place of theirs.
FacePictures RulesFaceModel::pictures() {
    const auto held = std::make_shared<EditorRulesPicture>();
    const auto ofDaemon = [this, held](const auto& change) {
        return [this, held, change] {
            *held = *m_picture;
            take(m_scope, change(*m_picture));
        };
    };
    const auto putBack = [this, held] { take(m_scope, *held); };
    const auto ask = [this](const char* term) {
        return [this, term] {
            EditorAsk next = m_ask;
            next.term = term;
            next.scopes = {"/work/harbour"};
            m_actions.ask(std::move(next));
        };
    };
    const auto gap = [&](const EditorRulesGap& what) {
        return ofDaemon(
            [what](EditorRulesPicture picture) { return withoutCard(std::move(picture), what); });
    };
    const auto editFirst = [this] { activate(m_rows.stop(-1, 1)); };
    const std::string scope = "/work/harbour";

    FacePictures pictures;
    pictures.push_back({.name = "rules-pending", .world = World::silent});
    pictures.push_back({.name = "rules-failed", .world = World::refusing});
    pictures.push_back({.name = "rules-empty", .world = World::empty});
    pictures.push_back({.name = "rules", .widths = Widths::every, .stand = ask("")});
    pictures.push_back({.name = "rules-editing", .stand = editFirst, .leave = [this] {
                            setDraft(m_rows.stop(-1, 1), QStringLiteral("Ask first, always"));
                            commit(m_rows.stop(-1, 1));
                        }});
    pictures.push_back({.name = "rules-refused", .leave = [this] {
                            m_outcome.reset();
                            Q_EMIT changed();
                        }});
    const auto compose = [this] {
        newRule();
        m_composer.setText(QStringLiteral("Read the tide table first"));
        m_composer.pick(0);
    };
    pictures.push_back(
        {.name = "rules-composer", .widths = Widths::every, .stand = compose, .leave = [this] {
             m_composer.cancel();
         }});
    pictures.push_back({.name = "rules-composer-refused",
                        .stand =
                            [this, compose] {
                                compose();
                                m_composer.setWhy(QStringLiteral("A boat lay dry."));
                                m_composer.save();
                                m_composer.setNewName(QStringLiteral("two words"));
                            },
                        .leave = [this] { m_composer.cancel(); }});
    pictures.push_back(
        {.name = "rules-nothing-matches", .stand = ask("zeppelin"), .leave = ask("")});
    for (const auto& [name, what] :
         {std::pair<const char*, EditorRulesGap>("rules-elsewhere", Gap::ScopeMismatch{scope, "/"}),
          {"rules-uncompiled", Gap::NothingCompiled{scope}},
          {"rules-unaddressable", Gap::UnaddressableScope{scope}}})
        pictures.push_back({.name = name, .stand = gap(what), .leave = putBack});
    pictures.push_back({.name = "rules-troubled", .stand = ofDaemon(troubled), .leave = putBack});
    pictures.push_back({.name = "rules-many", .stand = ofDaemon(crowded), .leave = putBack});
    return pictures;
}

} // namespace wendlow
