#include "JSONDraft.h"

#include <utility>

namespace wendlow {

JSONBlock::Result<void> JSONDraft::take(JSONEdit::Result edited) {
    if (!edited)
        return std::unexpected(edited.error());
    m_edited = *std::move(edited);
    auto scan = JSONText::scanWithTrivia(*m_edited, m_dialect);
    if (!scan)
        return std::unexpected(scan.error());
    m_document = &m_rescanned.emplace(*std::move(scan));
    return {};
}

} // namespace wendlow
