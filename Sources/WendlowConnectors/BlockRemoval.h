#pragma once

#include "BlockEdit.h"
#include "JSONDraft.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// One removal under way, and what is to be said about it.
class BlockRemoval {
public:
    using Step = JSONBlock::Result<void>;

    /// All three have to outlive it; `document` is the scan of `bytes`.
    BlockRemoval(std::string_view bytes, const JSONDocument& document,
                 const std::set<Created>& created)
        : m_draft(bytes, document), m_created(created) {}

    JSONDraft& draft() { return m_draft; }
    bool isOurs(Created container) const { return m_created.contains(container); }

    /// Takes member `key` of the object at `parent` out, if it is an empty list or object and
    /// `made` says that it is ours; nothing: it cannot be. Where it is not, `what` stays and is
    /// spoken of.
    Step removeEmpty(std::optional<Created> made, const JSONPath& parent, std::string_view key,
                     std::string_view what);
    /// "an empty <what> remains here, which Wendlow did not create"
    void leave(std::string_view what);
    void say(std::string_view sentence);

    /// `heldOurs`: an entry of ours was there.
    RemovedBlock finish(bool heldOurs) &&;

private:
    JSONDraft m_draft;
    const std::set<Created>& m_created;
    std::vector<std::string> m_leftovers;
};

} // namespace wendlow
