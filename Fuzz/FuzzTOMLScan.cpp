// Any bytes scan or are refused in words, and what a scan tells of them is consistent: positions in
// order, source texts at their places, names and strings that read back as what they are. A whole
// parser of TOML says the same of them.

#include "ConfigFile/TOMLText.h"
#include "TOMLAgreement.h"

#include <cstdint>
#include <cstdlib>
#include <fmt/format.h>

namespace {

using namespace wendlow;

void require(bool condition) {
    if (!condition)
        std::abort();
}

void checkName(const TOMLPath& name) {
    const auto bytes = fmt::format("[{}]", TOMLText::joined(name));
    const auto document = TOMLText::scan(bytes);
    require(document.has_value() && document->tables().back().name == name);
}

void checkText(std::string_view text) {
    const auto bytes = fmt::format("key = {} # {}", TOMLText::quote(text), "\"");
    const auto document = TOMLText::scan(bytes);
    require(document.has_value());
    require(document->entries(document->tables()[0])[0].text == text);
}

void checkEntry(std::string_view bytes, const TOMLTable& table, const TOMLEntry& entry) {
    require(table.bodyStart <= entry.keyStart && entry.keyStart < entry.valueEnd);
    require(entry.valueEnd <= entry.lineEnd && entry.lineEnd <= table.bodyEnd);
    require(entry.lineEnd == bytes.size() || bytes[entry.lineEnd - 1] == '\n');
    require(bytes.substr(entry.valueEnd - entry.raw.size(), entry.raw.size()) == entry.raw);
    require(entry.key.size() > 0);
    checkName(entry.key);
    if (entry.text)
        checkText(*entry.text);
}

void checkDocument(std::string_view bytes, const TOMLDocument& document) {
    std::size_t position = 0;
    for (const auto& table : document.tables()) {
        require(position <= table.headerStart && table.headerStart <= table.bodyStart);
        require(table.bodyStart <= table.bodyEnd && table.bodyEnd <= bytes.size());
        position = table.bodyStart;
        for (const auto& entry : document.entries(table)) {
            require(position <= entry.keyStart);
            checkEntry(bytes, table, entry);
            position = entry.lineEnd;
        }
        require(position == table.bodyEnd);
        if (table.name.size() != 0)
            checkName(table.name);
        const TOMLName owned[] = {table.name.name()};
        TOMLText::unreadableReason(document, owned);
    }
    std::size_t commentEnd = 0;
    for (const auto& comment : document.comments()) {
        require(commentEnd <= comment.lower && comment.lower < comment.upper);
        require(bytes[comment.lower] == '#');
        require(!bytes.substr(comment.lower, comment.size()).contains('\n'));
        commentEnd = comment.upper;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (const auto document = TOMLText::scan(bytes))
        checkDocument(bytes, *document);
    else
        require(document.error().offset <= size && !document.error().reason.empty());
    fuzz::requireAgreement(bytes);
    return 0;
}
