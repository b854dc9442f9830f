#pragma once

#include "JSONBlock.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace wendlow {

/// A JSON file while it is edited in steps: the bytes so far and their scan. Copies nothing before
/// the first step.
class JSONDraft {
public:
    /// Both have to outlive the draft; `document` is the scan of `bytes` in `dialect`.
    JSONDraft(std::string_view bytes, const JSONDocument& document,
              JSONDialect dialect = JSONDialect::json)
        : m_original(bytes), m_document(&document), m_dialect(dialect) {}
    JSONDraft(const JSONDraft&) = delete;
    JSONDraft& operator=(const JSONDraft&) = delete;

    std::string_view bytes() const { return m_edited ? *m_edited : m_original; }
    /// It and what it leads to are valid until the next step.
    JSONNode root() const { return document().root(); }
    const JSONDocument& document() const { return *m_document; }

    /// Makes one edit's result the bytes.
    JSONBlock::Result<void> take(JSONEdit::Result edited);
    /// The bytes; nothing where no step was made. Ends the draft.
    std::optional<std::string> finish() && { return std::move(m_edited); }

private:
    std::string_view m_original;
    std::optional<std::string> m_edited;
    const JSONDocument* m_document;
    JSONDialect m_dialect;
    std::optional<JSONDocument> m_rescanned;
};

} // namespace wendlow
