#include "DiagnosticSource.h"

#include "PlainText.h"
#include "RawString.h"

namespace wendlow::DiagnosticSources {

std::optional<DiagnosticSource> read(std::string_view text) {
    return fromRawString<DiagnosticSource>(PlainText::lowerCased(PlainText::trimmed(text)));
}

std::string_view category(std::string_view text) {
    const auto source = read(text);
    return source ? rawString(*source) : unknownCategory;
}

} // namespace wendlow::DiagnosticSources
