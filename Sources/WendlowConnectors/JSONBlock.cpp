#include "JSONBlock.h"

#include "Say.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <unordered_set>
#include <utility>

#include <fmt/format.h>

namespace wendlow::JSONBlock {

namespace {

/// The names of one object. The few that most objects have are compared one by one, which asks for
/// no memory.
class Names {
public:
    /// False where the name is there already.
    bool add(std::string_view name) {
        const auto few = std::span(m_first).first(m_count);
        if (std::ranges::find(few, name) != few.end())
            return false;
        if (m_count < m_first.size()) {
            m_first[m_count++] = name;
            return true;
        }
        return m_more.insert(name).second;
    }

private:
    std::array<std::string_view, 16> m_first;
    std::size_t m_count = 0;
    std::unordered_set<std::string_view> m_more;
};

} // namespace

Readable read(std::string_view bytes, JSONDialect dialect, std::span<const JSONPath> paths) {
    auto document = JSONText::scanWithTrivia(bytes, dialect);
    if (!document)
        return std::unexpected(document.error().unreadable());
    for (const JSONPath& path : paths)
        if (const auto object = document->root().node(path))
            if (auto reason = repeatedName(*object))
                return std::unexpected(*std::move(reason));
    return *std::move(document);
}

std::optional<Unreadable> repeatedName(const JSONNode& object) {
    Names seen;
    for (const JSONNode::Member& member : object.members())
        if (!seen.add(member.key))
            return Unreadable{.reason =
                                  say("the name \"{}\" appears twice in one object (at byte {})",
                                      member.key, member.keyStart),
                              .byte = member.keyStart};
    return std::nullopt;
}

std::optional<Unreadable> reason(const Readable& document) {
    return document ? std::nullopt : std::optional(document.error());
}

std::optional<std::string_view> text(const JSONNode& object, std::string_view key) {
    const auto member = object.member(key);
    return member ? member->string() : std::nullopt;
}

std::string notAnObject(std::string_view name) {
    return say("the {} value in this file is not an object, so no entry can be put in it", name);
}

std::string notAnArray(std::string_view name) {
    return say("the {} value in this file is not an array, so no entry can be put in it", name);
}

std::string replaced(std::string_view bytes, const JSONNode& root, const JSONNode& node,
                     const JSONLiteral& literal) {
    const RenderStyle style{.multiline = JSONEdit::spansLines(node.range(), bytes),
                            .newline = std::string(JSONEdit::lineEnding(bytes))};
    return fmt::format("{}{}{}", bytes.substr(0, node.start()),
                       literal.render(JSONEdit::lineIndent(node.start(), bytes),
                                      JSONEdit::indentUnit(root, bytes), style),
                       bytes.substr(node.end()));
}

bool isEmptyObject(std::string_view bytes) {
    const auto trim = [](std::string_view text) {
        while (!text.empty() && JSONText::isWhitespace(text.front()))
            text.remove_prefix(1);
        while (!text.empty() && JSONText::isWhitespace(text.back()))
            text.remove_suffix(1);
        return text;
    };
    const std::string_view text = trim(bytes);
    return text.size() >= 2 && text.front() == '{' && text.back() == '}' &&
           trim(text.substr(1, text.size() - 2)).empty();
}

} // namespace wendlow::JSONBlock
