#include "HookLists.h"

namespace wendlow::HookLists {

void forEachElement(const JSONNode& root, const Visit& visit) {
    const auto hooks = root.member("hooks");
    if (!hooks)
        return;
    for (const JSONNode::Member& event : hooks->members()) {
        std::ptrdiff_t index = 0;
        for (const JSONNode& element : event.value.elements())
            visit(event.key, index++, element);
    }
}

JSONBlock::Readable read(std::string_view bytes, std::optional<std::string_view> inner) {
    auto document = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    if (!document)
        return std::unexpected(document.error().unreadable());
    const JSONNode root = document->root();
    auto reason = JSONBlock::repeatedName(root);
    const auto judge = [&](const JSONNode& object) {
        if (!reason)
            reason = JSONBlock::repeatedName(object);
    };
    if (const auto hooks = root.member("hooks"))
        judge(*hooks);
    forEachElement(root, [&](std::string_view, std::ptrdiff_t, const JSONNode& element) {
        judge(element);
        if (const auto entries = inner ? element.member(*inner) : std::nullopt)
            std::ranges::for_each(entries->elements(), judge);
    });
    if (reason)
        return std::unexpected(*std::move(reason));
    return *std::move(document);
}

std::optional<std::string> foreignReason(const JSONNode& root,
                                         std::span<const std::string_view> events) {
    const auto hooks = root.member("hooks");
    if (!hooks)
        return std::nullopt;
    if (!hooks->isObject())
        return JSONBlock::notAnObject("hooks");
    for (const std::string_view event : events)
        if (const auto list = hooks->member(event); list && !list->isArray())
            return JSONBlock::notAnArray(event);
    return std::nullopt;
}

JSONBlock::Result<void> append(JSONDraft& draft, std::string_view event, const JSONLiteral& element,
                               const Containers& containers, std::set<Created>& created) {
    const auto hooks = draft.root().member("hooks");
    if (hooks && hooks->member(event))
        return draft.take(
            JSONEdit::appendElement(draft.bytes(), draft.document(), {"hooks", event}, element));
    created.insert(containers.list);
    const JSONLiteral list = JSONLiteral::array({element});
    // Fails in words where there is no place for a list.
    if (hooks)
        return draft.take(
            JSONEdit::setMember(draft.bytes(), draft.document(), {"hooks"}, event, list));
    created.insert(containers.hooksObject);
    return draft.take(JSONEdit::setMember(draft.bytes(), draft.document(), {}, "hooks",
                                          JSONLiteral::object({{std::string(event), list}})));
}

} // namespace wendlow::HookLists
