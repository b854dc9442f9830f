#include "ClaudeCode/ClaudeCodeHook.h"

#include "Drift.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

constexpr std::string_view promptEvent = "UserPromptSubmit";
constexpr std::string_view preToolEvent = "PreToolUse";
constexpr std::array events{promptEvent, preToolEvent};

/// Tells our pre-tool group from a person's, and is ours to take along with it.
JSONLiteral::Member preToolMatcher() {
    return {"matcher", JSONLiteral::string("mcp__wendlow__.*")};
}

const HookGroups::Containers& containers() {
    static const HookGroups::Containers cases{
        .of = [](std::string_view event) -> HookGroups::ContainerCases {
            if (event == preToolEvent)
                return {Created::preToolGroup, Created::preToolEventArray};
            return {Created::hookGroup, Created::eventArray};
        },
        .hooksObject = Created::hooksObject,
        .groupMembers = {preToolMatcher()},
    };
    return cases;
}

} // namespace

ClaudeCodeHook::ClaudeCodeHook(ClaudeCodePaths paths)
    : m_paths(std::move(paths)), m_currents(m_paths.currents()),
      m_places{.promptEvent = promptEvent,
               .preToolEvent = preToolEvent,
               .promptCommand = m_paths.hookCommands().front(),
               .preToolCommand = m_paths.preToolCommand(),
               .binary = m_paths.hookBinary,
               .count = HookPlaces::Count::four},
      m_preToolGroup(JSONLiteral::object({
          preToolMatcher(),
          {"hooks", JSONLiteral::array({entry(m_paths.preToolCommand())})},
      })) {
    for (const std::string& command : m_paths.hookCommands())
        m_entries.push_back(entry(command));
}

JSONLiteral ClaudeCodeHook::entry(std::string_view command) const {
    return JSONLiteral::object({
        {"type", JSONLiteral::string("command")},
        {"command", JSONLiteral::string(std::string(command))},
        {"timeout", JSONLiteral::number(ClaudeCodePaths::hookTimeoutSeconds)},
    });
}

ClaudeCodeHook::Readable ClaudeCodeHook::read(std::string_view bytes) const {
    return HookGroups::read(bytes);
}

std::vector<HookSite> ClaudeCodeHook::sites(const JSONNode& root) const {
    return HookGroups::sites(root, m_currents);
}

BlockFinding ClaudeCodeHook::find(std::string_view bytes, const Readable& document) const {
    return HookGroups::find(
        bytes, document, events,
        [this](const JSONNode& root, std::string_view) { return sites(root); },
        [this](const auto& own, const JSONNode& root, std::string_view text) {
            return driftReasons(own, root, text);
        });
}

std::vector<std::string> ClaudeCodeHook::driftReasons(const std::vector<HookSite>& sites,
                                                      const JSONNode& root,
                                                      std::string_view bytes) const {
    auto reasons = m_places.driftReasons(sites);
    if (m_places.areHeld(sites) && !converged(sites, root, bytes))
        reasons.emplace_back(Drift::otherShape());
    return reasons;
}

bool ClaudeCodeHook::isExactPreTool(const HookSite& site, const JSONNode& root,
                                    std::string_view bytes) const {
    const auto group = root.node(site.groupPath());
    return site.event == preToolEvent && group && m_preToolGroup.isStatedBy(*group, bytes);
}

bool ClaudeCodeHook::converged(const std::vector<HookSite>& sites, const JSONNode& root,
                               std::string_view bytes) const {
    if (sites.size() != 4)
        return false;
    std::vector<const HookSite*> slots;
    for (const HookSite& site : sites)
        if (site.event == promptEvent)
            slots.push_back(&site);
        else if (!isExactPreTool(site, root, bytes))
            return false;
    if (slots.size() != 3)
        return false;
    for (std::size_t slot = 0; slot < slots.size(); ++slot)
        if (slots[slot]->group != slots.front()->group ||
            std::cmp_not_equal(slots[slot]->entry, slot) ||
            !m_entries[slot].isStatedBy(*root.node(slots[slot]->entryPath()), bytes))
            return false;
    return true;
}

/// An installation under way.
struct ClaudeCodeHook::Draft : JSONDraft {
    using JSONDraft::JSONDraft;
    std::set<Created> created;
};

ClaudeCodeHook::Result<InstalledBlock> ClaudeCodeHook::installed(std::string_view bytes) const {
    const auto document = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    if (!document)
        return std::unexpected(document.error());
    return installed(bytes, *document);
}

ClaudeCodeHook::Result<InstalledBlock>
ClaudeCodeHook::installed(std::string_view bytes, const JSONDocument& document) const {
    Draft draft(bytes, document);
    if (converged(sites(draft.root()), draft.root(), bytes))
        return InstalledBlock{};
    for (const auto step : {&ClaudeCodeHook::discardOthers, &ClaudeCodeHook::installSlots,
                            &ClaudeCodeHook::installPreTool})
        if (auto done = (this->*step)(draft); !done)
            return std::unexpected(done.error());
    std::set<Created> created = std::move(draft.created);
    return InstalledBlock{
        .bytes = std::move(draft).finish(), .created = std::move(created), .lost = {}};
}

/// The first site that keeps its group as the slots' group. A group that also holds an entry that
/// is not ours is no candidate: its list is never rewritten.
const HookSite* ClaudeCodeHook::slotSite(const std::vector<HookSite>& sites,
                                         const JSONNode& root) const {
    for (const HookSite& site : sites) {
        if (site.event != promptEvent || HookCommand::isPreTool(site.command))
            continue;
        const auto ours = std::ranges::count_if(sites, [&](const HookSite& other) {
            return other.event == site.event && other.group == site.group;
        });
        if (std::cmp_equal(ours, root.node(site.entriesPath())->count()))
            return &site;
    }
    return nullptr;
}

ClaudeCodeHook::Result<void> ClaudeCodeHook::discardOthers(Draft& draft) const {
    while (true) {
        const auto own = sites(draft.root());
        const HookSite* slot = slotSite(own, draft.root());
        const auto preTool = std::ranges::find_if(own, [&](const HookSite& site) {
            return isExactPreTool(site, draft.root(), draft.bytes());
        });
        const auto other = std::ranges::find_if(own, [&](const HookSite& site) {
            const bool inSlotGroup =
                slot != nullptr && site.event == slot->event && site.group == slot->group;
            return !inSlotGroup && (preTool == own.end() || site != *preTool);
        });
        if (other == own.end())
            return {};
        if (auto step = HookGroups::discard(draft, *other, containers().groupMembers); !step)
            return step;
    }
}

ClaudeCodeHook::Result<void> ClaudeCodeHook::installSlots(Draft& draft) const {
    const JSONLiteral own = JSONLiteral::array(entries());
    const auto sitesNow = sites(draft.root());
    const HookSite* slot = slotSite(sitesNow, draft.root());
    if (slot == nullptr)
        return HookGroups::append(draft, promptEvent, JSONLiteral::object({{"hooks", own}}),
                                  containers(), draft.created);
    if (own.isStatedBy(*draft.root().node(slot->entriesPath()), draft.bytes()))
        return {};
    return draft.take(
        JSONEdit::setMember(draft.bytes(), draft.document(), slot->groupPath(), "hooks", own));
}

ClaudeCodeHook::Result<void> ClaudeCodeHook::installPreTool(Draft& draft) const {
    const auto own = sites(draft.root());
    if (std::ranges::any_of(own, [&](const HookSite& site) {
            return isExactPreTool(site, draft.root(), draft.bytes());
        }))
        return {};
    return HookGroups::append(draft, preToolEvent, preToolGroup(), containers(), draft.created);
}

ClaudeCodeHook::Result<RemovedBlock>
ClaudeCodeHook::removed(std::string_view bytes, const std::set<Created>& created) const {
    const auto document = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    if (!document)
        return std::unexpected(document.error());
    return removed(bytes, *document, created);
}

ClaudeCodeHook::Result<RemovedBlock>
ClaudeCodeHook::removed(std::string_view bytes, const JSONDocument& document,
                        const std::set<Created>& created) const {
    return HookGroups::removed(bytes, document, sites(document.root()), created, containers());
}

} // namespace wendlow
