#include "BlockRemoval.h"

#include <utility>

#include <fmt/format.h>

namespace wendlow {

BlockRemoval::Step BlockRemoval::removeEmpty(Created made, const JSONPath& parent,
                                             std::string_view key, JSONNode::Kind kind,
                                             std::string_view what) {
    const auto object = m_draft.root().node(parent);
    const auto container = object ? object->member(key) : std::nullopt;
    if (!container || container->kind() != kind || container->count() > 0)
        return {};
    if (isOurs(made))
        return m_draft.take(
            JSONEdit::removeMember(m_draft.bytes(), m_draft.document(), parent, key));
    leave(what);
    return {};
}

void BlockRemoval::leave(std::string_view what) {
    say(fmt::format("an empty {} remains here, which Wendlow did not create", what));
}

RemovedBlock BlockRemoval::finish() && {
    return {.bytes = std::move(m_draft).finish(), .leftovers = std::move(m_leftovers)};
}

} // namespace wendlow
