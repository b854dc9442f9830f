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

/// One removal under way: the bytes so far, and what is to be said about them.
class Removal {
public:
    using Step = JSONBlock::Result<void>;

    Removal(std::string_view bytes, const std::set<Created>& created, const Containers& containers)
        : m_original(bytes), m_created(created), m_containers(containers) {}

    Step removeEntry(const HookSite& site) {
        if (auto step = take(JSONEdit::removeElement(bytes(), site.entriesPath(), site.entry));
            !step)
            return step;
        return removeEmptyGroup(site);
    }

    /// Takes member `key` of the object at `parent` out, if it is an empty container of ours.
    Step removeEmpty(Created made, const JSONPath& parent, const std::string& key,
                     JSONNode::Kind kind, std::string_view what) {
        const auto document = scan();
        if (!document)
            return std::unexpected(document.error());
        const auto object = document->root().node(parent);
        const auto container = object ? object->member(key) : std::nullopt;
        if (!container || container->kind() != kind || container->count() > 0)
            return {};
        if (m_created.contains(made))
            return take(JSONEdit::removeMember(bytes(), parent, key, JSONDialect::json));
        leave(what);
        return {};
    }

    RemovedBlock result() && { return std::move(m_result); }

private:
    std::string_view bytes() const { return m_result.bytes ? *m_result.bytes : m_original; }

    JSONBlock::Result<JSONDocument> scan() const {
        auto document = JSONText::scanWithTrivia(bytes(), JSONDialect::json);
        if (!document)
            return std::unexpected(document.error());
        return *std::move(document);
    }

    Step take(JSONEdit::Result edited) {
        if (!edited)
            return std::unexpected(edited.error());
        m_result.bytes = *std::move(edited);
        return {};
    }

    void leave(std::string_view what) {
        m_result.leftovers.push_back(
            fmt::format("an empty {} remains here, which Wendlow did not create", what));
    }

    Step removeEmptyGroup(const HookSite& site) {
        const auto document = scan();
        if (!document)
            return std::unexpected(document.error());
        if (!groupIsEmpty(document->root(), site))
            return {};
        if (!m_created.contains(m_containers.of(site.event).group)) {
            leave("hook group");
            return {};
        }
        if (!groupIsOurs(document->root(), bytes(), site, m_containers.groupMembers)) {
            m_result.leftovers.emplace_back("a hook group without entries remains here, because "
                                            "it holds more than Wendlow wrote");
            return {};
        }
        return take(JSONEdit::removeElement(bytes(), site.eventPath(), site.group));
    }

    std::string_view m_original;
    const std::set<Created>& m_created;
    const Containers& m_containers;
    RemovedBlock m_result;
};

} // namespace

std::vector<HookSite> sites(const JSONNode& root, std::span<const std::string> currents) {
    std::vector<HookSite> found;
    const auto hooks = root.member("hooks");
    if (!hooks)
        return found;
    for (const JSONNode::Member& event : hooks->members()) {
        std::ptrdiff_t groupIndex = -1;
        for (const JSONNode& group : event.value.elements()) {
            ++groupIndex;
            const auto entries = group.member("hooks");
            if (!entries)
                continue;
            std::ptrdiff_t entryIndex = -1;
            for (const JSONNode& entry : entries->elements()) {
                ++entryIndex;
                const auto member = entry.member("command");
                const auto command = member ? member->string() : std::nullopt;
                const auto tier = command ? HookCommand::tier(*command, currents) : std::nullopt;
                if (tier)
                    found.push_back({.event = std::string(event.key),
                                     .group = groupIndex,
                                     .entry = entryIndex,
                                     .command = std::string(*command),
                                     .tier = *tier});
            }
        }
    }
    return found;
}

namespace {

/// The first repeated name in the objects that an entry's path leads through, outside in.
std::optional<std::string> repeatedName(const JSONNode& root) {
    if (auto reason = JSONBlock::repeatedName(root))
        return reason;
    const auto hooks = root.member("hooks");
    if (!hooks)
        return std::nullopt;
    if (auto reason = JSONBlock::repeatedName(*hooks))
        return reason;
    for (const JSONNode::Member& event : hooks->members())
        for (const JSONNode& group : event.value.elements()) {
            if (auto reason = JSONBlock::repeatedName(group))
                return reason;
            const auto entries = group.member("hooks");
            if (!entries)
                continue;
            for (const JSONNode& entry : entries->elements())
                if (auto reason = JSONBlock::repeatedName(entry))
                    return reason;
        }
    return std::nullopt;
}

} // namespace

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

JSONBlock::Result<std::string> discard(const HookSite& site, std::string_view bytes,
                                       const JSONLiteral::Object& groupMembers) {
    auto edited = JSONEdit::removeElement(bytes, site.entriesPath(), site.entry);
    if (!edited)
        return edited;
    const auto document = JSONText::scanWithTrivia(*edited, JSONDialect::json);
    if (!document)
        return std::unexpected(document.error());
    if (groupIsEmpty(document->root(), site) &&
        groupIsOurs(document->root(), *edited, site, groupMembers))
        return JSONEdit::removeElement(*edited, site.eventPath(), site.group);
    return edited;
}

JSONBlock::Result<RemovedBlock> removed(std::string_view bytes, std::vector<HookSite> own,
                                        const std::set<Created>& created,
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
    Removal removal(bytes, created, containers);
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
