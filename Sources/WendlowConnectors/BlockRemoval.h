#pragma once

#include "BlockEdit.h"
#include "JSONDraft.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
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

    /// Takes the list of `event` out, if it is empty and `made` says that it is ours; nothing: it
    /// cannot be. Where it is not, it stays and is spoken of.
    Step removeEmptyList(std::optional<Created> made, const std::string& event);
    /// The same for the `hooks` object.
    Step removeEmptyHooks(Created made);
    void note(std::string sentence) { m_leftovers.push_back(std::move(sentence)); }

    /// `heldOurs`: an entry of ours was there.
    RemovedBlock finish(bool heldOurs) &&;

private:
    JSONBlock::Result<bool> staysEmpty(std::optional<Created> made, const JSONPath& parent,
                                       std::string_view key);

    JSONDraft m_draft;
    const std::set<Created>& m_created;
    std::vector<std::string> m_leftovers;
};

} // namespace wendlow
