#include "Codex/CodexConfigPlan.h"

#include "TOMLDraft.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace wendlow {

namespace {

/// One step of a plan. False: it could not be made, or what it made does not read.
template<class Edit> bool take(TOMLDraft& draft, Edit& edit) {
    return edit && draft.take(std::move(edit->bytes));
}

struct Rest {
    std::optional<std::string> bytes; ///< nothing: nothing in it was ours
    bool endedInOurs = false;
};

std::expected<RemovedBlock, TOMLEditFailure> withoutTable(std::string_view bytes,
                                                          const TOMLName& name) {
    auto edited = TOMLEdit::removeTable(bytes, name);
    if (!edited)
        return std::unexpected(edited.error());
    RemovedBlock block;
    block.bytes = *std::move(edited);
    return block;
}

/// The configuration without our tables and these slots. Nothing: it could not be made.
std::optional<Rest> withoutOurs(std::string_view bytes, const TOMLDocument& document,
                                const std::vector<TOMLName>& tables,
                                const std::vector<std::string>& keys) {
    TOMLDraft draft(bytes, document);
    bool endedInOurs = false;
    // Step by step: taken all together, what went from the middle hides what went from the end.
    const auto takeAway = [&](auto removal) {
        if (removal && removal->bytes && draft.bytes().starts_with(*removal->bytes))
            endedInOurs = true;
        return take(draft, removal);
    };
    for (const TOMLName& table : tables)
        if (!takeAway(withoutTable(draft.bytes(), table)))
            return std::nullopt;
    for (const std::string& key : keys)
        if (!takeAway(CodexTrust::removed(draft.bytes(), {key})))
            return std::nullopt;
    return Rest{.bytes = std::move(draft).finish(), .endedInOurs = endedInOurs};
}

/// Whether a file that gets a final line end for our sake keeps the line that had none. Where that
/// line is ours and goes, the end of the line above it is the person's own.
bool keepsUnendedLine(std::string_view bytes, const TOMLDocument& document,
                      const std::vector<std::string>& keys) {
    const auto rest = withoutOurs(bytes, document, CodexMCP::ownTables(document, {}), keys);
    const std::string_view kept = rest && rest->bytes ? *rest->bytes : bytes;
    return !kept.empty() && !kept.ends_with('\n');
}

/// `text` without the line end that an installation added to its last line.
std::string_view withoutAddedLineEnd(std::string_view text) {
    const auto added = TOMLText::lineEnding(text.substr(0, text.size() - 1));
    return text.ends_with(added) ? text.substr(0, text.size() - added.size()) : text;
}

} // namespace

CodexConfigPlan::CodexConfigPlan(const CodexMCP& mcp, const CodexTrust& trust, Hooks hooks)
    : m_mcp(mcp), m_trust(trust), m_hooks(std::move(hooks)) {}

std::optional<CodexConfigPlan::Installed>
CodexConfigPlan::installed(std::string_view bytes, const TOMLDocument& document,
                           const CodexTrust::Keys& landings, std::string_view hash) const {
    TOMLDraft draft(bytes, document);
    Installed plan;

    auto server = m_mcp.installed(draft.bytes(), draft.document());
    if (!take(draft, server))
        return std::nullopt;
    plan.created = std::move(server->created);
    std::vector<TOMLName> owned{CodexMCP::tableName()};
    for (const std::string& landing : landings) {
        auto trust = CodexTrust::installed(draft.bytes(), draft.document(), landing, hash);
        if (!take(draft, trust))
            return std::nullopt;
        plan.created.merge(trust->created);
        owned.push_back(CodexTrust::tableName(landing));
    }
    plan.judgement = judge(draft.document(), landings);
    auto cleared = CodexTrust::removed(draft.bytes(), plan.judgement.clear);
    if (!take(draft, cleared))
        return std::nullopt;
    if (TOMLText::unreadableReason(draft.document(), owned))
        return std::nullopt;

    plan.commentsReplaced = server->commentsReplaced;
    plan.lost = std::move(server->lost);
    std::vector<std::string> own = plan.judgement.clear;
    own.insert(own.end(), landings.begin(), landings.end());
    if (!keepsUnendedLine(bytes, document, own))
        plan.created.erase(Created::codexConfigTrailingNewline);
    plan.trustSlots.insert(landings.begin(), landings.end());
    for (const std::string& key : m_hooks.receiptSlots)
        if (draft.document().table(CodexTrust::tableName(key)) != nullptr)
            plan.trustSlots.insert(key);
    plan.isHookOff = std::ranges::any_of(landings, [&](const std::string& landing) {
        return CodexTrust::isSwitchedOff(landing, draft.document());
    });
    plan.isServerOff = CodexMCP::isSwitchedOff(draft.document());
    plan.bytes = std::move(draft).finish();
    return plan;
}

std::optional<CodexConfigPlan::Removed>
CodexConfigPlan::removed(std::string_view bytes, const TOMLDocument& document,
                         const std::set<Created>& created) const {
    Removed plan;
    plan.judgement = judge(document, {});
    plan.lost = m_mcp.lostByRemoval(document, created);
    // Where our table is gone and no hash of ours goes, what goes is what `lost` names.
    plan.heldOurs =
        document.table(CodexMCP::tableName()) != nullptr || !plan.judgement.clear.empty();
    auto rest =
        withoutOurs(bytes, document, CodexMCP::ownTables(document, created), plan.judgement.clear);
    if (!rest)
        return std::nullopt;
    plan.bytes = std::move(rest->bytes);
    if (plan.bytes && plan.bytes->ends_with('\n') && rest->endedInOurs &&
        created.contains(Created::codexConfigTrailingNewline))
        plan.bytes->resize(withoutAddedLineEnd(*plan.bytes).size());
    return plan;
}

CodexTrust::Judgement CodexConfigPlan::judge(const TOMLDocument& document,
                                             const CodexTrust::Keys& occupied) const {
    return m_trust.judge(document, occupied, m_hooks.receiptSlots, m_hooks.isKnown, m_hooks.isLive);
}

} // namespace wendlow
