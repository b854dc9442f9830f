// Any bytes: the scan reads nothing outside of them, its ranges fit into each other, and it accepts
// what another strict reader accepts.

#include "JSONChecks.h"

#include <boost/json/parse.hpp>
#include <boost/json/parse_options.hpp>

namespace {

using namespace wendlow;
using fuzz::require;

void checkNode(const JSONNode& node, std::string_view bytes, int depth) {
    using Kind = JSONNode::Kind;
    require(depth <= 65, "deeper than 64 containers and a value", bytes);
    require(node.start() < node.end() && node.end() <= bytes.size(), "an empty range", bytes);
    const auto text = bytes.substr(node.start(), node.range().size());
    const auto framed = [&](std::string_view frame) {
        return text.size() >= 2 && text.front() == frame[0] && text.back() == frame[1];
    };
    auto at = node.start() + 1;
    const auto checkInside = [&](const JSONNode& child) {
        require(child.start() >= at, "ranges overlap", bytes);
        checkNode(child, bytes, depth + 1);
        at = child.end();
        require(at < node.end(), "a range sticks out", bytes);
    };
    switch (node.kind()) {
    case Kind::object:
        require(framed("{}"), "an object's range", bytes);
        for (const auto& member : node.members()) {
            require(member.keyStart >= at && bytes[member.keyStart] == '"', "a name", bytes);
            at = member.keyStart + 2;
            checkInside(member.value);
        }
        break;
    case Kind::array:
        require(framed("[]"), "an array's range", bytes);
        for (const auto element : node.elements()) {
            checkInside(element);
        }
        break;
    case Kind::string:
        require(framed("\"\""), "a string's range", bytes);
        require(node.string()->size() <= text.size() - 2, "a decoded text", bytes);
        break;
    case Kind::boolean:
        require(text == (*node.boolean() ? "true" : "false"), "a boolean's range", bytes);
        break;
    case Kind::number:
        require(JSONText::scanWithTrivia(text, JSONDialect::json).has_value(), "a number", bytes);
        break;
    case Kind::null:
        require(text == "null", "a null's range", bytes);
        break;
    }
}

/// Whether Boost.JSON reads it; nothing where it stops at a limit that is its own.
std::optional<bool> boostReads(std::string_view bytes) {
    boost::json::error_code error;
    boost::json::parse_options options;
    options.max_depth = 64;
    static_cast<void>(boost::json::parse(bytes, error, {}, options));
    if (error == boost::json::error::exponent_overflow || error == boost::json::error::too_deep) {
        return std::nullopt;
    }
    return !error;
}

/// Blanks for the commas that stand in front of a closing bracket.
void blankTrailingCommas(std::string& text) {
    bool inString = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (inString && text[at] == '\\') {
            ++at;
        } else if (text[at] == '"') {
            inString = !inString;
        } else if (text[at] == ',' && !inString) {
            const auto next = text.find_first_not_of(" \t\r\n", at + 1);
            if (next != std::string::npos && (text[next] == '}' || text[next] == ']')) {
                text[at] = ' ';
            }
        }
    }
}

/// Blanks where the comments and those commas are: then it is strict JSON of the same value.
void checkComments(const JSONDocument& document, std::string_view bytes) {
    std::string blanked(bytes);
    for (const auto& range : document.comments()) {
        blanked.replace(range.lower, range.size(), range.size(), ' ');
    }
    blankTrailingCommas(blanked);
    const auto strict = fuzz::scanned(blanked, JSONDialect::json, "not JSON without its comments");
    require(strict.root().value(blanked) == document.root().value(bytes),
            "another value without its comments", bytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::ExactBytes input(data, size);
    const auto bytes = input.view();
    const auto strict = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    const auto commented = JSONText::scanWithTrivia(bytes, JSONDialect::jsonWithComments);
    for (const auto* result : {&strict, &commented}) {
        if (*result) {
            checkNode((*result)->root(), bytes, 1);
        } else {
            require(result->error().offset <= size, "a failure outside", bytes);
        }
    }
    if (strict) {
        require(commented && commented->comments().empty(), "stricter with comments", bytes);
    }
    if (commented) {
        checkComments(*commented, bytes);
    }
    if (const auto reads = boostReads(bytes)) {
        const bool tooDeep =
            !strict && strict.error().reason == "the document nests deeper than 64 levels";
        require(tooDeep || *reads == strict.has_value(), "another reader disagrees", bytes);
    }
    return 0;
}
