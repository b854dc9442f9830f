#include "Codex/CodexHook.h"

#include "Drift.h"
#include "Say.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <map>
#include <utility>

namespace wendlow {

namespace {

constexpr std::string_view promptEvent = "UserPromptSubmit";
constexpr std::array events{promptEvent};
constexpr std::string_view statusMessage = "Loading Wendlow rules and memory";
constexpr std::int64_t additionalContextLimit = 7500;

const HookGroups::Containers& containers() {
    static const HookGroups::Containers cases{
        .of = [](std::string_view) -> HookGroups::ContainerCases {
            return {Created::codexHookGroup, Created::codexEventArray};
        },
        .hooksObject = Created::codexHooksObject,
        .groupMembers = {},
    };
    return cases;
}

std::optional<std::string> textOf(const JSONNode& object, std::string_view key) {
    const auto text = JSONBlock::text(object, key);
    return text ? std::optional<std::string>(*text) : std::nullopt;
}

/// A member that is a number without fraction and exponent. Nothing where it is anything else.
std::optional<std::int64_t> wholeNumber(const JSONNode& object, std::string_view key,
                                        std::string_view bytes) {
    const auto member = object.member(key);
    if (!member || member->kind() != JSONNode::Kind::number)
        return std::nullopt;
    std::int64_t number = 0;
    const auto [rest, error] =
        std::from_chars(bytes.data() + member->start(), bytes.data() + member->end(), number);
    if (error != std::errc() || rest != bytes.data() + member->end())
        return std::nullopt;
    return number;
}

/// An entry's timeout as it is hashed; nothing where Codex cannot read it.
std::optional<std::int64_t> timeoutOf(const JSONNode& entry, std::string_view bytes) {
    const auto stated = wholeNumber(entry, "timeout", bytes);
    if (entry.member("timeout") && (!stated || *stated < 0))
        return std::nullopt;
    return CodexHookIdentity::hashedTimeout(stated);
}

} // namespace

std::optional<CodexHookIdentity> CodexHookSite::identity() const {
    if (!timeout)
        return std::nullopt;
    return CodexHookIdentity{.command = command,
                             .statusMessage = statusMessage,
                             .timeout = *timeout,
                             .isAsync = isAsync,
                             .additionalContextLimit = additionalContextLimit};
}

CodexHook::CodexHook(CodexPaths paths)
    : m_paths(std::move(paths)), m_currents{m_paths.hookCommand()},
      m_group(JSONLiteral::object({{"hooks", JSONLiteral::array({entry()})}})),
      m_identity{.command = m_currents.front(),
                 .statusMessage = std::string(statusMessage),
                 .timeout = CodexPaths::hookTimeoutSeconds,
                 .isAsync = false,
                 .additionalContextLimit = additionalContextLimit},
      m_trustedHash(m_identity.trustedHash()) {}

JSONLiteral CodexHook::entry() const {
    return JSONLiteral::object({
        {"type", JSONLiteral::string("command")},
        {"command", JSONLiteral::string(m_paths.hookCommand())},
        {"statusMessage", JSONLiteral::string(std::string(statusMessage))},
        {"timeout", JSONLiteral::number(CodexPaths::hookTimeoutSeconds)},
        {"additionalContextLimit", JSONLiteral::number(additionalContextLimit)},
    });
}

std::optional<std::string> CodexHook::trustedHash(const CodexHookSite& site) const {
    const auto identity = site.identity();
    if (!identity)
        return std::nullopt;
    return *identity == m_identity ? m_trustedHash : identity->trustedHash();
}

CodexHook::Readable CodexHook::read(std::string_view bytes) const {
    return HookGroups::read(bytes);
}

std::vector<CodexHookSite> CodexHook::sites(const JSONNode& root, std::string_view bytes) const {
    std::vector<CodexHookSite> result;
    for (HookSite& found : HookGroups::sites(root, m_currents)) {
        const JSONNode entry = *root.node(found.entryPath());
        const auto isAsync = entry.member("async");
        CodexHookSite site;
        site.statusMessage = textOf(entry, "statusMessage");
        site.timeout = timeoutOf(entry, bytes);
        site.isAsync = isAsync && isAsync->boolean().value_or(false);
        site.additionalContextLimit = wholeNumber(entry, "additionalContextLimit", bytes);
        static_cast<HookSite&>(site) = std::move(found);
        result.push_back(std::move(site));
    }
    return result;
}

BlockFinding CodexHook::find(std::string_view bytes, const Readable& document) const {
    return find(bytes, document,
                document ? sites(document->root(), bytes) : std::vector<CodexHookSite>());
}

BlockFinding CodexHook::find(std::string_view bytes, const Readable& document,
                             const std::vector<CodexHookSite>& sites) const {
    return HookGroups::find(
        bytes, document, events,
        [&](const JSONNode&, std::string_view) -> const auto& { return sites; },
        [this](const auto& own, const JSONNode& root, std::string_view text) {
            return driftReasons(own, root, text);
        });
}

std::vector<std::string> CodexHook::driftReasons(const std::vector<CodexHookSite>& sites,
                                                 const JSONNode& root,
                                                 std::string_view bytes) const {
    std::vector<std::string> reasons;
    if (sites.size() > 1)
        reasons.push_back(say.plural(static_cast<std::int64_t>(sites.size()),
                                     "this file holds {} Wendlow entries where one is expected",
                                     "this file holds {} Wendlow entries where one is expected",
                                     sites.size()));
    for (const CodexHookSite& site : sites)
        if (site.event != promptEvent)
            reasons.push_back(
                say("a Wendlow entry here is under the {} event, which Codex does not read as {}",
                    site.event, promptEvent));
    const CodexHookSite& shown = sites.front();
    std::ranges::move(Drift::reasons(shown.command, m_paths.hookCommand(), m_paths.hookBinary),
                      std::back_inserter(reasons));
    if (!shown.timeout)
        reasons.push_back(say("the timeout on the Wendlow entry here is not a whole number, so the "
                              "identity Codex hashes cannot be computed"));
    if (sites.size() == 1 && !m_group.isStatedBy(*root.node(shown.groupPath()), bytes))
        reasons.emplace_back(Drift::otherShape());
    return reasons;
}

CodexHook::Result<CodexHook::Installed> CodexHook::installed(std::string_view bytes,
                                                             const JSONDocument& document) const {
    JSONDraft draft(bytes, document);
    Installed installed;
    if (auto step = discardOthers(draft); !step)
        return std::unexpected(step.error());
    if (auto step = writeEntry(draft, installed.created); !step)
        return std::unexpected(step.error());
    // The position counts in the file as it will be: what was discarded in front has moved it.
    installed.site = sites(draft.root(), draft.bytes()).front();
    installed.bytes = std::move(draft).finish();
    return installed;
}

/// Leaves only the entry that Codex runs on a prompt already. One under another event is never
/// kept: its position would be taken for one among the prompt's, where somebody else's entry may
/// stand.
CodexHook::Result<void> CodexHook::discardOthers(JSONDraft& draft) const {
    while (true) {
        const auto own = sites(draft.root(), draft.bytes());
        const CodexHookSite* const kept = onPrompt(own);
        const auto other =
            std::ranges::find_if(own, [&](const CodexHookSite& site) { return &site != kept; });
        if (other == own.end())
            return {};
        if (auto step = HookGroups::discard(draft, *other, containers().groupMembers); !step)
            return step;
    }
}

CodexHook::Result<void> CodexHook::writeEntry(JSONDraft& draft, std::set<Created>& created) const {
    const auto own = sites(draft.root(), draft.bytes());
    if (own.empty())
        return HookGroups::append(draft, promptEvent, group(), containers(), created);
    const JSONNode present = *draft.root().node(own.front().entryPath());
    if (entry().isStatedBy(present, draft.bytes()))
        return {};
    return draft.take(JSONBlock::replaced(draft.bytes(), draft.root(), present, entry()));
}

CodexHook::Result<RemovedBlock> CodexHook::removed(std::string_view bytes,
                                                   const JSONDocument& document,
                                                   const std::set<Created>& created) const {
    return HookGroups::removed(bytes, document, HookGroups::sites(document.root(), m_currents),
                               created, containers());
}

bool CodexHook::holdsBrokenTimeout(const JSONNode& root, std::string_view bytes) {
    bool isBroken = false;
    HookGroups::forEachEntry(root, [&](const HookGroups::Entry& entry) {
        isBroken = isBroken || !timeoutOf(entry.node, bytes);
    });
    return isBroken;
}

bool CodexHook::areHooksOff(const TOMLDocument& config) {
    const TOMLName name{"features", "hooks"};
    return std::ranges::any_of(config.tables(), [&](const TOMLTable& table) {
        return std::ranges::any_of(config.entries(table), [&](const TOMLEntry& entry) {
            // "[features]" and "hooks", or in one where a table is stated by dots.
            return table.name.size() + entry.key.size() == name.size() &&
                   table.name.leadsTo(name) && entry.key[entry.key.size() - 1] == name.back() &&
                   (entry.key.size() == 1 || entry.key[0] == name.front()) && entry.raw == "false";
        });
    });
}

const CodexHookSite* CodexHook::onPrompt(const std::vector<CodexHookSite>& sites) {
    const auto found = std::ranges::find(sites, promptEvent, &CodexHookSite::event);
    return found == sites.end() ? nullptr : &*found;
}

bool CodexHook::isLive(const JSONNode& root, std::ptrdiff_t group, std::ptrdiff_t index) {
    return root.node({"hooks", promptEvent, group, "hooks", index}).has_value();
}

std::vector<std::string> CodexHook::movedForeignEntries(const JSONNode& before,
                                                        const JSONNode& after) const {
    using Position = std::pair<std::ptrdiff_t, std::ptrdiff_t>;
    using Positions = std::map<std::string, std::vector<std::pair<std::string, Position>>>;
    const auto foreign = [&](const JSONNode& root) {
        Positions byEvent;
        HookGroups::forEachEntry(root, [&](const HookGroups::Entry& entry) {
            const auto command = textOf(entry.node, "command");
            if (command && !HookCommand::tier(*command, m_currents))
                byEvent[std::string(entry.event)].push_back({*command, {entry.group, entry.index}});
        });
        return byEvent;
    };
    // No edit of ours removes or reorders them, so that the nth of an event is the nth afterwards.
    Positions now = foreign(after);
    std::vector<std::string> moved;
    for (auto& [event, entries] : foreign(before))
        for (std::size_t index = 0; index < entries.size(); ++index)
            if (index >= now[event].size() || now[event][index] != entries[index])
                moved.push_back(entries[index].first);
    return moved;
}

} // namespace wendlow
