#pragma once

#include "ConfigFile/TOMLEdit.h"

#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace wendlow {

/// A TOML file while it is edited in steps: the bytes so far and their scan. Copies nothing before
/// the first step.
class TOMLDraft {
public:
    /// Both have to outlive the draft; `document` is the scan of `bytes`.
    TOMLDraft(std::string_view bytes, const TOMLDocument& document)
        : m_original(bytes), m_document(&document) {}
    TOMLDraft(const TOMLDraft&) = delete;
    TOMLDraft& operator=(const TOMLDraft&) = delete;

    std::string_view bytes() const { return m_edited ? *m_edited : m_original; }
    /// It and what it leads to are valid until the next step.
    const TOMLDocument& document() const { return *m_document; }

    /// Makes these the bytes; nothing: they stay.
    std::expected<void, TOMLEditFailure> take(std::optional<std::string> edited);
    /// The bytes; nothing where no step changed them. Ends the draft.
    std::optional<std::string> finish() && { return std::move(m_edited); }

private:
    std::string_view m_original;
    std::optional<std::string> m_edited;
    const TOMLDocument* m_document;
    std::optional<TOMLDocument> m_rescanned;
};

} // namespace wendlow
