#include "Cursor/CursorHook.h"

#include "BlockRemoval.h"
#include "ConfigFile/JSONBytes.h"
#include "Drift.h"
#include "HookLists.h"
#include "Overloaded.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

constexpr std::string_view promptEvent = "beforeSubmitPrompt";
constexpr std::string_view preToolEvent = "preToolUse";
constexpr std::array events{promptEvent, preToolEvent};
constexpr std::string_view preToolMatcher = "^(Task|MCP:(grab|memory_add|meeting_get))$";

/// The receipt's case for the list of `event`; nothing where it can only be somebody else's.
std::optional<Created> listCase(std::string_view event) {
    if (event == promptEvent)
        return Created::cursorEventArray;
    return event == preToolEvent ? std::optional(Created::cursorPreToolEventArray) : std::nullopt;
}

/// A value's source text on one line, cut to 24 characters.
std::string shortened(std::string_view source) {
    std::string text;
    for (const char byte : source)
        if (!JSONText::isWhitespace(byte))
            text += byte;
        else if (!text.empty() && text.back() != ' ')
            text += ' ';
    constexpr std::size_t longest = 24;
    const char* const end = text.data() + text.size();
    std::size_t length = 0;
    for (std::size_t characters = 0; length < text.size(); ++characters) {
        if (characters == longest)
            return text.substr(0, length) + "…";
        length += JSONBytes::utf8Sequence(text.data() + length, end).length;
    }
    return text;
}

/// The members of an entry that are not among `ours`, each as its name and value.
std::vector<std::string> foreignFields(const JSONNode& entry, std::string_view bytes,
                                       const JSONLiteral& ours) {
    const auto& own = std::get<JSONLiteral::Object>(ours.content);
    std::vector<std::string> fields;
    for (const JSONNode::Member& member : entry.members())
        if (std::ranges::count(own, member.key, &JSONLiteral::Member::key) == 0)
            fields.push_back(fmt::format(
                "{} {}", member.key,
                shortened(bytes.substr(member.value.start(), member.value.range().size()))));
    return fields;
}

} // namespace

JSONPath CursorHookSite::listPath() const {
    return {"hooks", event};
}

JSONPath CursorHookSite::entryPath() const {
    return {"hooks", event, index};
}

CursorHook::CursorHook(CursorPaths paths)
    : m_paths(std::move(paths)), m_currents{m_paths.hookCommand(), m_paths.preToolCommand()},
      m_places{.promptEvent = promptEvent,
               .preToolEvent = preToolEvent,
               .promptCommand = m_paths.hookCommand(),
               .preToolCommand = m_paths.preToolCommand(),
               .binary = m_paths.hookBinary,
               .count = HookPlaces::Count::two},
      m_placements{{{promptEvent, entry(), m_paths.hookCommand()},
                    {preToolEvent, preToolEntry(), m_paths.preToolCommand()}}} {}

JSONLiteral CursorHook::entry() const {
    return JSONLiteral::object({{"command", JSONLiteral::string(m_paths.hookCommand())}});
}

JSONLiteral CursorHook::preToolEntry() const {
    return JSONLiteral::object({
        {"command", JSONLiteral::string(m_paths.preToolCommand())},
        {"matcher", JSONLiteral::string(std::string(preToolMatcher))},
        {"timeout", JSONLiteral::number(CursorPaths::hookTimeoutSeconds)},
    });
}

CursorHook::Readable CursorHook::read(std::string_view bytes) const {
    return HookLists::read(bytes);
}

CursorHooksVersion CursorHook::version(const JSONNode& root, std::string_view bytes) const {
    return CursorHooksVersion::of(root, bytes);
}

std::vector<CursorHookSite> CursorHook::sites(const JSONNode& root) const {
    std::vector<CursorHookSite> found;
    HookLists::forEachElement(
        root, [&](std::string_view event, std::ptrdiff_t index, const JSONNode& entry) {
            const auto command = JSONBlock::text(entry, "command");
            if (const auto tier = command ? HookCommand::tier(*command, m_currents) : std::nullopt)
                found.push_back({.event = std::string(event),
                                 .index = index,
                                 .command = std::string(*command),
                                 .tier = *tier});
        });
    return found;
}

BlockFinding CursorHook::find(std::string_view bytes, const Readable& document) const {
    return find(bytes, document,
                document ? sites(document->root()) : std::vector<CursorHookSite>());
}

BlockFinding CursorHook::find(std::string_view bytes, const Readable& document,
                              const std::vector<CursorHookSite>& own) const {
    if (!document)
        return {BlockFinding::Unreadable{document.error()}};
    const JSONNode root = document->root();
    std::vector<std::string> reasons;
    const CursorHooksVersion stated = version(root, bytes);
    if (const std::string* foreign = stated.foreign())
        reasons.push_back(CursorHookError{*foreign}.description());
    if (auto reason = HookLists::foreignReason(root, events)) {
        reasons.push_back(*std::move(reason));
        return {BlockFinding::Foreign{std::move(reasons)}};
    }
    if (own.empty())
        return reasons.empty() ? BlockFinding{BlockFinding::Absent{}}
                               : BlockFinding{BlockFinding::Foreign{std::move(reasons)}};
    std::ranges::move(m_places.driftReasons(own), std::back_inserter(reasons));
    if (m_places.areHeld(own) && !converged(own, root, bytes))
        reasons.emplace_back(Drift::otherShape());
    return BlockFinding::from(std::move(reasons));
}

bool CursorHook::converged(const std::vector<CursorHookSite>& sites, const JSONNode& root,
                           std::string_view bytes) const {
    const auto holds = [&](const Placement& own) {
        const auto site = std::ranges::find(sites, own.event, &CursorHookSite::event);
        return site != sites.end() && site->command == own.command &&
               own.entry.isStatedBy(*root.node(site->entryPath()), bytes);
    };
    return sites.size() == 2 && std::ranges::all_of(m_placements, holds);
}

/// An installation under way.
struct CursorHook::Draft : JSONDraft {
    using JSONDraft::JSONDraft;
    std::set<Created> created;
    std::vector<std::string> replaced;
};

std::expected<CursorHook::Installed, CursorHook::Failure>
CursorHook::installed(std::string_view bytes) const {
    const auto document = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    if (!document)
        return std::unexpected(JSONEditFailure(document.error()));
    return installed(bytes, *document);
}

std::expected<CursorHook::Installed, CursorHook::Failure>
CursorHook::installed(std::string_view bytes, const JSONDocument& document) const {
    const JSONNode root = document.root();
    const CursorHooksVersion stated = version(root, bytes);
    if (const std::string* foreign = stated.foreign())
        return std::unexpected(CursorHookError{*foreign});
    if (converged(sites(root), root, bytes))
        return Installed{};
    Draft draft(bytes, document);
    if (auto step = discardOthers(draft); !step)
        return std::unexpected(step.error());
    for (const Placement& placement : m_placements)
        if (auto step = place(draft, placement); !step)
            return std::unexpected(step.error());
    // A list that was there before is the person's, also where discarding emptied it and placing
    // made it anew.
    for (const std::string_view event : events)
        if (root.node({"hooks", event}))
            draft.created.erase(*listCase(event));
    Installed installed;
    installed.created = std::move(draft.created);
    installed.replaced = std::move(draft.replaced);
    installed.bytes = std::move(draft).finish();
    return installed;
}

/// Leaves at most the one entry under each event that is going to be ours.
CursorHook::Result<void> CursorHook::discardOthers(JSONDraft& draft) const {
    while (true) {
        const auto own = sites(draft.root());
        const auto keeper = [&](std::string_view event) {
            return std::ranges::find_if(own, [&](const CursorHookSite& site) {
                return site.event == event && m_places.eventOf(site.command) == event;
            });
        };
        const std::array kept{keeper(promptEvent), keeper(preToolEvent)};
        auto other = own.begin();
        while (other != own.end() && std::ranges::count(kept, other) > 0)
            ++other;
        if (other == own.end())
            return {};
        if (auto step = draft.take(JSONEdit::removeElement(draft.bytes(), draft.document(),
                                                           other->listPath(), other->index));
            !step)
            return step;
        if (draft.root().node(other->listPath())->count() > 0)
            continue;
        if (auto step = draft.take(
                JSONEdit::removeMember(draft.bytes(), draft.document(), {"hooks"}, other->event));
            !step)
            return step;
    }
}

CursorHook::Result<void> CursorHook::place(Draft& draft, const Placement& placement) const {
    const auto own = sites(draft.root());
    const auto site = std::ranges::find(own, placement.event, &CursorHookSite::event);
    if (site == own.end())
        return HookLists::append(draft, placement.event, placement.entry,
                                 {*listCase(placement.event), Created::cursorHooksObject},
                                 draft.created);
    const JSONNode present = *draft.root().node(site->entryPath());
    if (placement.entry.isStatedBy(present, draft.bytes()))
        return {};
    std::ranges::move(foreignFields(present, draft.bytes(), placement.entry),
                      std::back_inserter(draft.replaced));
    return draft.take(JSONBlock::replaced(draft.bytes(), draft.root(), present, placement.entry));
}

CursorHook::Result<RemovedBlock> CursorHook::removed(std::string_view bytes,
                                                     const std::set<Created>& created) const {
    const auto document = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    if (!document)
        return std::unexpected(document.error());
    return removed(bytes, *document, created);
}

CursorHook::Result<RemovedBlock> CursorHook::removed(std::string_view bytes,
                                                     const JSONDocument& document,
                                                     const std::set<Created>& created) const {
    BlockRemoval removal(bytes, document, created);
    JSONDraft& draft = removal.draft();
    std::vector<std::string> emptied;
    for (auto own = sites(draft.root()); !own.empty(); own = sites(draft.root())) {
        const CursorHookSite& site = own.front();
        if (std::ranges::count(emptied, site.event) == 0)
            emptied.push_back(site.event);
        if (auto step = draft.take(JSONEdit::removeElement(draft.bytes(), draft.document(),
                                                           site.listPath(), site.index));
            !step)
            return std::unexpected(step.error());
    }
    for (const std::string& event : emptied)
        if (auto step = removal.removeEmptyList(listCase(event), event); !step)
            return std::unexpected(step.error());
    if (auto step = removal.removeEmptyHooks(Created::cursorHooksObject); !step)
        return std::unexpected(step.error());
    return std::move(removal).finish(!emptied.empty());
}

bool CursorHook::isSeedResidue(std::string_view bytes) {
    const auto document = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    if (!document || !document->root().isObject())
        return false;
    const JSONNode root = document->root();
    return std::ranges::all_of(
               root.members(),
               [](const JSONNode::Member& member) { return member.key == "version"; }) &&
           CursorHooksVersion::of(root, bytes).foreign() == nullptr;
}

std::string description(const CursorHook::Failure& failure) {
    return std::visit(Overloaded{[](const CursorHookError& error) { return error.description(); },
                                 [](const JSONEditFailure& error) { return description(error); }},
                      failure);
}

} // namespace wendlow
