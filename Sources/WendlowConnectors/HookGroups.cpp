#include "HookGroups.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

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

/// Whatever stands where groups do, under any event, in document order.
template<class Visit> void forEachGroup(const JSONNode& root, Visit visit) {
    const auto hooks = root.member("hooks");
    if (!hooks)
        return;
    for (const JSONNode::Member& event : hooks->members()) {
        std::ptrdiff_t index = 0;
        for (const JSONNode& group : event.value.elements())
            visit(event.key, index++, group);
    }
}

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
            return own.key == member.key && own.value.value() == member.value.value(bytes);
        };
        if (std::ranges::none_of(ours, same))
            return false;
    }
    return true;
}

/// The first repeated name in the objects that an entry's path leads through, outside in.
std::optional<std::string> repeatedName(const JSONNode& root) {
    auto reason = JSONBlock::repeatedName(root);
    const auto hooks = root.member("hooks");
    const auto judge = [&](const JSONNode& object) {
        if (!reason)
            reason = JSONBlock::repeatedName(object);
    };
    if (hooks)
        judge(*hooks);
    forEachGroup(root, [&](std::string_view, std::ptrdiff_t, const JSONNode& group) {
        judge(group);
        if (const auto entries = group.member("hooks"))
            std::ranges::for_each(entries->elements(), judge);
    });
    return reason;
}

/// One removal under way, and what is to be said about it.
class Removal {
public:
    Removal(std::string_view bytes, const JSONDocument& document, const std::set<Created>& created,
            const Containers& containers)
        : m_draft(bytes, document), m_created(created), m_containers(containers) {}

    Step removeEntry(const HookSite& site) {
        if (auto step = m_draft.take(JSONEdit::removeElement(m_draft.bytes(), m_draft.document(),
                                                             site.entriesPath(), site.entry));
            !step)
            return step;
        return removeEmptyGroup(site);
    }

    /// Takes member `key` of the object at `parent` out, if it is an empty container of ours.
    Step removeEmpty(Created made, const JSONPath& parent, const std::string& key,
                     JSONNode::Kind kind, std::string_view what) {
        const auto object = m_draft.root().node(parent);
        const auto container = object ? object->member(key) : std::nullopt;
        if (!container || container->kind() != kind || container->count() > 0)
            return {};
        if (m_created.contains(made))
            return m_draft.take(
                JSONEdit::removeMember(m_draft.bytes(), m_draft.document(), parent, key));
        leave(what);
        return {};
    }

    RemovedBlock result() && {
        return {.bytes = std::move(m_draft).finish(), .leftovers = std::move(m_leftovers)};
    }

private:
    void leave(std::string_view what) {
        m_leftovers.push_back(
            fmt::format("an empty {} remains here, which Wendlow did not create", what));
    }

    Step removeEmptyGroup(const HookSite& site) {
        if (!groupIsEmpty(m_draft.root(), site))
            return {};
        if (!m_created.contains(m_containers.of(site.event).group)) {
            leave("hook group");
            return {};
        }
        if (!groupIsOurs(m_draft.root(), m_draft.bytes(), site, m_containers.groupMembers)) {
            m_leftovers.emplace_back("a hook group without entries remains here, because it holds "
                                     "more than Wendlow wrote");
            return {};
        }
        return m_draft.take(JSONEdit::removeElement(m_draft.bytes(), m_draft.document(),
                                                    site.eventPath(), site.group));
    }

    JSONDraft m_draft;
    const std::set<Created>& m_created;
    const Containers& m_containers;
    std::vector<std::string> m_leftovers;
};

} // namespace

void forEachEntry(const JSONNode& root, const std::function<void(const Entry&)>& visit) {
    forEachGroup(root, [&](std::string_view event, std::ptrdiff_t index, const JSONNode& group) {
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
    auto document = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    if (!document)
        return std::unexpected(document.error().description());
    if (auto reason = repeatedName(document->root()))
        return std::unexpected(*std::move(reason));
    return *std::move(document);
}

std::optional<std::string> foreignReason(const JSONNode& root,
                                         std::span<const std::string_view> events) {
    const auto hooks = root.member("hooks");
    if (!hooks)
        return std::nullopt;
    if (!hooks->isObject())
        return JSONBlock::notA("hooks", "object");
    for (const std::string_view event : events)
        if (const auto list = hooks->member(event); list && !list->isArray())
            return JSONBlock::notA(event, "array");
    return std::nullopt;
}

Step append(JSONDraft& draft, std::string_view event, const JSONLiteral& group,
            const Containers& containers, std::set<Created>& created) {
    const auto cases = containers.of(event);
    created.insert(cases.group);
    const auto hooks = draft.root().member("hooks");
    if (hooks && hooks->member(event))
        return draft.take(
            JSONEdit::appendElement(draft.bytes(), draft.document(), {"hooks", event}, group));
    created.insert(cases.list);
    const JSONLiteral list = JSONLiteral::array({group});
    // Fails in words where there is no place for a list.
    if (hooks)
        return draft.take(
            JSONEdit::setMember(draft.bytes(), draft.document(), {"hooks"}, event, list));
    created.insert(containers.hooksObject);
    return draft.take(JSONEdit::setMember(draft.bytes(), draft.document(), {}, "hooks",
                                          JSONLiteral::object({{std::string(event), list}})));
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
        if (auto step = removal.removeEmpty(containers.of(event).list, {"hooks"}, event,
                                            JSONNode::Kind::array, event + " list");
            !step)
            return std::unexpected(step.error());
    if (auto step = removal.removeEmpty(containers.hooksObject, {}, "hooks", JSONNode::Kind::object,
                                        "hooks object");
        !step)
        return std::unexpected(step.error());
    return std::move(removal).result();
}

} // namespace HookGroups
} // namespace wendlow
