#include "TOMLDraft.h"

namespace wendlow {

std::expected<void, TOMLEditFailure> TOMLDraft::take(std::optional<std::string> edited) {
    if (!edited)
        return {};
    m_edited = std::move(edited);
    auto scan = TOMLText::scan(*m_edited);
    if (!scan)
        return std::unexpected(scan.error());
    m_document = &m_rescanned.emplace(*std::move(scan));
    return {};
}

} // namespace wendlow
