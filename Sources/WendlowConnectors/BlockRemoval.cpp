#include "BlockRemoval.h"

#include <utility>

#include <fmt/format.h>

namespace wendlow {

BlockRemoval::Step BlockRemoval::removeEmpty(std::optional<Created> made, const JSONPath& parent,
                                             std::string_view key, std::string_view what) {
    const auto object = m_draft.root().node(parent);
    const auto container = object ? object->member(key) : std::nullopt;
    if (!container || !(container->isObject() || container->isArray()) || container->count() > 0)
        return {};
    if (made && isOurs(*made))
        return m_draft.take(
            JSONEdit::removeMember(m_draft.bytes(), m_draft.document(), parent, key));
    leave(what);
    return {};
}

void BlockRemoval::leave(std::string_view what) {
    say(fmt::format("an empty {} remains here, which Wendlow did not create", what));
}

void BlockRemoval::say(std::string_view sentence) {
    m_leftovers.emplace_back(sentence);
}

RemovedBlock BlockRemoval::finish(bool heldOurs) && {
    return {.bytes = std::move(m_draft).finish(),
            .leftovers = std::move(m_leftovers),
            .lost = {},
            .heldOurs = heldOurs};
}

} // namespace wendlow
