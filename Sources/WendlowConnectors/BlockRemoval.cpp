#include "BlockRemoval.h"

#include "Say.h"

#include <utility>

namespace wendlow {

/// Takes member `key` of the object at `parent` out, if it is an empty list or object and ours;
/// true: it is empty and not ours.
JSONBlock::Result<bool> BlockRemoval::staysEmpty(std::optional<Created> made,
                                                 const JSONPath& parent, std::string_view key) {
    const auto object = m_draft.root().node(parent);
    const auto container = object ? object->member(key) : std::nullopt;
    if (!container || !(container->isObject() || container->isArray()) || container->count() > 0)
        return false;
    if (!made || !isOurs(*made))
        return true;
    if (auto step =
            m_draft.take(JSONEdit::removeMember(m_draft.bytes(), m_draft.document(), parent, key));
        !step)
        return std::unexpected(step.error());
    return false;
}

BlockRemoval::Step BlockRemoval::removeEmptyList(std::optional<Created> made,
                                                 const std::string& event) {
    const auto stays = staysEmpty(made, {"hooks"}, event);
    if (!stays)
        return std::unexpected(stays.error());
    if (*stays)
        note(say("an empty {} list remains here, which Wendlow did not create", event));
    return {};
}

BlockRemoval::Step BlockRemoval::removeEmptyHooks(Created made) {
    const auto stays = staysEmpty(made, {}, "hooks");
    if (!stays)
        return std::unexpected(stays.error());
    if (*stays)
        note(say("an empty hooks object remains here, which Wendlow did not create"));
    return {};
}

RemovedBlock BlockRemoval::finish(bool heldOurs) && {
    return {.bytes = std::move(m_draft).finish(),
            .leftovers = std::move(m_leftovers),
            .lost = {},
            .heldOurs = heldOurs};
}

} // namespace wendlow
