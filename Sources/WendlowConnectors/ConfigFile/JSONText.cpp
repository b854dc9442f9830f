#include "ConfigFile/JSONText.h"

#include "ConfigFile/JSONScanner.h"
#include "ConfigFile/JSONTape.h"
#include "Say.h"

#include <fmt/format.h>
#include <utility>

namespace wendlow {

std::string JSONTextError::description() const {
    return say("{} (at byte {})", reason, offset);
}

JSONDocument::JSONDocument(std::unique_ptr<const JSONTape> tape) : m_tape(std::move(tape)) {}
JSONDocument::JSONDocument(JSONDocument&&) noexcept = default;
JSONDocument& JSONDocument::operator=(JSONDocument&&) noexcept = default;
JSONDocument::~JSONDocument() = default;

JSONNode JSONDocument::root() const {
    return {m_tape.get(), 0};
}

std::span<const ByteRange> JSONDocument::comments() const {
    return m_tape->comments();
}

std::expected<JSONDocument, JSONTextError> JSONText::scanWithTrivia(std::string_view bytes,
                                                                    JSONDialect dialect) {
    if (bytes.size() > JSONTape::longestText)
        return std::unexpected(
            JSONTextError{JSONTape::longestText, say("the document is too long")});
    auto tape = std::make_unique<JSONTape>(bytes);
    if (auto failure = Scanner(bytes, dialect, *tape).scan()) {
        return std::unexpected(std::move(*failure));
    }
    return JSONDocument(std::move(tape));
}

} // namespace wendlow
