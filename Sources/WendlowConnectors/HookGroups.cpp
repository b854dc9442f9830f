#include "HookGroups.h"

#include "BlockRemoval.h"
#include "Say.h"

#include <algorithm>
#include <utility>

namespace wendlow {

JSONPath HookSite::eventPath() const {
    return {"hooks", event};
}
JSONPath HookSite::groupPath() const {
    return {"hooks", event, group};
}
JSONPath HookSite::entriesPath() const {
    return {"hooks", event, group, "hooks"};
}
JSONPath HookSite::entryPath() const {
    return {"hooks", event, group, "hooks", entry};
}

namespace HookGroups {

namespace {

using Step = JSONBlock::Result<void>;

/// Whether the group at `site` holds no entry any more.
bool groupIsEmpty(const JSONNode& root, const HookSite& site) {
    const auto entries = root.node(site.entriesPath());
    return entries && entries->isArray() && entries->count() == 0;
}

/// Whether all that the group holds beside its entries is ours.
bool groupIsOurs(const JSONNode& root, std::string_view bytes, const HookSite& site,
                 const JSONLiteral::Object& ours) {
    for (const JSONNode::Member& member : root.node(site.groupPath())->members()) {
        if (member.key == "hooks")
            continue;
        const auto same = [&](const JSONLiteral::Member& own) {
            return own.key == member.key && own.value.isStatedBy(member.value, bytes);
        };
        if (std::ranges::none_of(ours, same))
            return false;
    }
    return true;
}

/// One removal under way, with its groups.
class Removal : public BlockRemoval {
public:
    Removal(std::string_view bytes, const JSONDocument& document, const std::set<Created>& created,
            const Containers& containers)
        : BlockRemoval(bytes, document, created), m_containers(containers) {}

    Step removeEntry(const HookSite& site) {
        if (auto step = draft().take(JSONEdit::removeElement(draft().bytes(), draft().document(),
                                                             site.entriesPath(), site.entry));
            !step)
            return step;
        return removeEmptyGroup(site);
    }

private:
    Step removeEmptyGroup(const HookSite& site) {
        if (!groupIsEmpty(draft().root(), site))
            return {};
        if (!isOurs(m_containers.of(site.event).group)) {
            note(say("an empty hook group remains here, which Wendlow did not create"));
            return {};
        }
        if (!groupIsOurs(draft().root(), draft().bytes(), site, m_containers.groupMembers)) {
            note(say("a hook group without entries remains here, because it holds more than "
                     "Wendlow wrote"));
            return {};
        }
        return draft().take(JSONEdit::removeElement(draft().bytes(), draft().document(),
                                                    site.eventPath(), site.group));
    }

    const Containers& m_containers;
};

} // namespace

void forEachEntry(const JSONNode& root, const std::function<void(const Entry&)>& visit) {
    HookLists::forEachElement(
        root, [&](std::string_view event, std::ptrdiff_t index, const JSONNode& group) {
            const auto entries = group.member("hooks");
            if (!entries)
                return;
            std::ptrdiff_t position = 0;
            for (const JSONNode& node : entries->elements())
                visit({.event = event, .group = index, .index = position++, .node = node});
        });
}

std::vector<HookSite> sites(const JSONNode& root, std::span<const std::string> currents) {
    std::vector<HookSite> found;
    forEachEntry(root, [&](const Entry& entry) {
        const auto command = JSONBlock::text(entry.node, "command");
        if (const auto tier = command ? HookCommand::tier(*command, currents) : std::nullopt)
            found.push_back({.event = std::string(entry.event),
                             .group = entry.group,
                             .entry = entry.index,
                             .command = std::string(*command),
                             .tier = *tier});
    });
    return found;
}

JSONBlock::Readable read(std::string_view bytes) {
    return HookLists::read(bytes, "hooks");
}

Step append(JSONDraft& draft, std::string_view event, const JSONLiteral& group,
            const Containers& containers, std::set<Created>& created) {
    const auto cases = containers.of(event);
    created.insert(cases.group);
    return HookLists::append(draft, event, group, {cases.list, containers.hooksObject}, created);
}

Step discard(JSONDraft& draft, const HookSite& site, const JSONLiteral::Object& groupMembers) {
    if (auto step = draft.take(JSONEdit::removeElement(draft.bytes(), draft.document(),
                                                       site.entriesPath(), site.entry));
        !step)
        return step;
    if (groupIsEmpty(draft.root(), site) &&
        groupIsOurs(draft.root(), draft.bytes(), site, groupMembers))
        return draft.take(
            JSONEdit::removeElement(draft.bytes(), draft.document(), site.eventPath(), site.group));
    return {};
}

JSONBlock::Result<RemovedBlock> removed(std::string_view bytes, const JSONDocument& document,
                                        std::vector<HookSite> own, const std::set<Created>& created,
                                        const Containers& containers) {
    const bool heldOurs = !own.empty();
    // Within an event from the back, so that the indices in front stay valid.
    std::vector<std::string> events;
    for (auto first = own.begin(); first != own.end();) {
        events.push_back(first->event);
        const auto last = std::find_if(
            first, own.end(), [&](const HookSite& site) { return site.event != events.back(); });
        std::reverse(first, last);
        first = last;
    }
    Removal removal(bytes, document, created, containers);
    for (const HookSite& site : own)
        if (auto step = removal.removeEntry(site); !step)
            return std::unexpected(step.error());
    for (const std::string& event : events)
        if (auto step = removal.removeEmptyList(containers.of(event).list, event); !step)
            return std::unexpected(step.error());
    const auto hooks = removal.draft().root().member("hooks");
    if (!hooks || !hooks->isObject())
        return std::move(removal).finish(heldOurs);
    if (auto step = removal.removeEmptyHooks(containers.hooksObject); !step)
        return std::unexpected(step.error());
    return std::move(removal).finish(heldOurs);
}

} // namespace HookGroups
} // namespace wendlow
