#include "ConfigFile/JSONEdit.h"

#include "ConfigFile/JSONComments.h"
#include "ConfigFile/JSONEditMeasures.h"
#include "Say.h"

#include <algorithm>
#include <fmt/format.h>
#include <optional>
#include <span>
#include <utility>

namespace wendlow {

namespace {

/// "hooks.PreToolUse.[0].hooks"
std::string pathName(const JSONPath& path) {
    std::string name;
    for (const auto& [step] : path) {
        if (&step != &path.front().step) {
            name += '.';
        }
        if (const auto* key = std::get_if<std::string>(&step)) {
            name += *key;
        } else {
            name += fmt::format("[{}]", std::get<std::ptrdiff_t>(step));
        }
    }
    return name;
}

} // namespace

JSONEditError JSONEditError::notAnObject(JSONPath path) {
    return {Kind::notAnObject, std::move(path), {}, 0};
}

JSONEditError JSONEditError::notAnArray(JSONPath path) {
    return {Kind::notAnArray, std::move(path), {}, 0};
}

JSONEditError JSONEditError::noSuchMember(JSONPath path, std::string_view key) {
    return {Kind::noSuchMember, std::move(path), std::string(key), 0};
}

JSONEditError JSONEditError::noSuchElement(JSONPath path, std::ptrdiff_t index) {
    return {Kind::noSuchElement, std::move(path), {}, index};
}

std::string JSONEditError::description() const {
    const std::string name = pathName(path);
    const bool isRoot = path.empty();
    switch (kind) {
    case Kind::notAnObject:
        return isRoot ? say("the top-level value is not an object")
                      : say("{} is not an object", name);
    case Kind::notAnArray:
        return isRoot ? say("the top-level value is not an array")
                      : say("{} is not an array", name);
    case Kind::noSuchMember:
        return isRoot ? say("{} is not in the top-level value", key)
                      : say("{} is not in {}", key, name);
    case Kind::noSuchElement:
        return isRoot ? say("the top-level value has no element {}", index)
                      : say("{} has no element {}", name, index);
    }
    return {};
}

std::string description(const JSONEditFailure& failure) {
    return std::visit([](const auto& error) { return error.description(); }, failure);
}

namespace JSONEdit {

namespace {

using Member = JSONNode::Member;

std::unexpected<JSONEditFailure> failure(JSONEditError error) {
    return std::unexpected(JSONEditFailure(std::move(error)));
}

/// The one way in which an edit changes bytes. One allocation.
std::string splice(std::string_view text, ByteRange range, std::string_view replacement) {
    std::string result;
    result.reserve(text.size() - range.size() + replacement.size());
    result += text.substr(0, range.lower);
    result += replacement;
    result += text.substr(range.upper);
    return result;
}

/// What lies between the brackets of a container.
ByteRange inside(const JSONNode& container) {
    return {container.start() + 1, container.end() - 1};
}

std::string keyed(std::string_view key, const RenderStyle& style) {
    return JSONLiteral::quote(key) + (style.multiline ? ": " : ":");
}

/// The first item of an empty container on a line of its own, with the line of the closing bracket;
/// `name` is the quoted key and colon of a member.
std::string firstItemOnLine(const JSONNode& container, const JSONNode& root, std::string_view text,
                            std::string_view name, const JSONLiteral& literal) {
    const RenderStyle style{.multiline = true, .newline = std::string(lineEnding(text))};
    const auto unit = indentUnit(root, text);
    const auto outer = lineIndent(container.start(), text);
    const auto inner = fmt::format("{}{}", outer, unit);
    return fmt::format("{0}{1}{2}{3}{0}{4}", style.newline, inner, name,
                       literal.render(inner, unit, style), outer);
}

/// Where the last comment that ends in `range` does; where the range begins, if none does.
std::size_t lastCommentEnd(std::span<const ByteRange> comments, ByteRange range) {
    const auto after = std::ranges::upper_bound(comments, range.upper, {}, &ByteRange::upper);
    return after == comments.begin() ? range.lower : std::max(range.lower, std::prev(after)->upper);
}

/// The comma behind the last item of a container, which ends at `itemEnd`. Only where comments are
/// allowed may there be one.
std::optional<std::size_t> trailingComma(std::string_view text, std::size_t itemEnd) {
    const auto next = JSONComments::triviaEnd(text, itemEnd);
    return text[next] == ',' ? std::optional(next) : std::nullopt;
}

/// What is inserted, and where.
struct Insertion {
    std::size_t position = 0;
    std::string text;
};

/// A new item behind the last one and its `comma`, with a comma of its own. On lines, it is below
/// the comments that stand there, so that each stays with what it speaks of.
Insertion behindComma(std::string_view text, std::span<const ByteRange> comments, std::size_t comma,
                      std::size_t closing, const InsertionPrefix& set, std::string_view item) {
    if (!set.style.multiline)
        return {comma + 1, fmt::format("{}{},", set.prefix, item)};
    const auto lowest = lastCommentEnd(comments, {comma + 1, closing});
    const auto position = whitespaceRun(closing, text, lowest).lower;
    // A comment that ends there would take in blanks in front of the line break, and would lose a
    // carriage return of its own to a line feed without one.
    const auto feed = set.prefix.find('\n');
    const bool isCRLF = feed > 0 && set.prefix[feed - 1] == '\r';
    const bool hasReturn = isCRLF || text[position - 1] == '\r';
    return {position, fmt::format("{}{}{},", hasReturn ? "\r" : "", set.prefix.substr(feed), item)};
}

std::string setFirstMember(std::string_view text, const JSONDocument& document,
                           const JSONNode& object, std::string_view key,
                           const JSONLiteral& literal) {
    const auto braces = inside(object);
    const bool hasComment = JSONComments::count(document.comments(), braces) > 0;
    // Comments stay above the new member; without any, the whole document says whether it is one
    // that is laid out in lines.
    const bool multiline = spansLines(hasComment ? braces : ByteRange{0, text.size()}, text);
    const auto replaced = !hasComment ? braces
                          : multiline ? whitespaceRun(braces.upper, text, braces.lower)
                                      : ByteRange{braces.upper, braces.upper};
    const RenderStyle style{.multiline = multiline};
    const auto name = keyed(key, style);
    return splice(text, replaced,
                  multiline ? firstItemOnLine(object, document.root(), text, name, literal)
                            : name + literal.render("", "", style));
}

} // namespace

Result setMember(std::string_view text, const JSONDocument& document, const JSONPath& path,
                 std::string_view key, const JSONLiteral& literal) {
    const auto object = document.root().node(path);
    if (!object || !object->isObject()) {
        return failure(JSONEditError::notAnObject(path));
    }
    std::optional<Member> last;
    for (const auto& member : object->members()) {
        if (member.key == key) {
            const RenderStyle style{.multiline = spansLines(object->range(), text),
                                    .newline = std::string(lineEnding(text))};
            return splice(text, member.value.range(),
                          literal.render(lineIndent(member.keyStart, text),
                                         indentUnit(document.root(), text), style));
        }
        last = member;
    }
    if (!last) {
        return setFirstMember(text, document, *object, key, literal);
    }
    const auto set = insertionPrefix(last->keyStart, text, lineEnding(text));
    const auto item = keyed(key, set.style) +
                      literal.render(set.indent, indentUnit(document.root(), text), set.style);
    const auto end = last->value.end();
    const auto comma = trailingComma(text, end);
    const Insertion insertion =
        comma ? behindComma(text, document.comments(), *comma, object->end() - 1, set, item)
              : Insertion{end, fmt::format(",{}{}", set.prefix, item)};
    return splice(text, {insertion.position, insertion.position}, insertion.text);
}

Result appendElement(std::string_view text, const JSONDocument& document, const JSONPath& path,
                     const JSONLiteral& literal) {
    const auto root = document.root();
    const auto array = root.node(path);
    if (!array || !array->isArray()) {
        return failure(JSONEditError::notAnArray(path));
    }
    std::optional<JSONNode> last;
    for (const auto element : array->elements()) {
        last = element;
    }
    if (!last) {
        return splice(text, inside(*array),
                      spansLines({0, text.size()}, text)
                          ? firstItemOnLine(*array, root, text, "", literal)
                          : literal.render("", "", {}));
    }
    const auto [prefix, indent, style] = insertionPrefix(last->start(), text, lineEnding(text));
    return splice(
        text, {last->end(), last->end()},
        fmt::format(",{}{}", prefix, literal.render(indent, indentUnit(root, text), style)));
}

namespace {

/// An item of a container between its neighbours.
struct Siblings {
    std::optional<std::size_t> previousEnd;
    ByteRange item;
    std::optional<std::size_t> nextStart;
    std::optional<std::size_t> trailingComma = std::nullopt; ///< behind it, if it is the last
};

/// What goes with an item that is not the only one: the comma behind the first one, so that the
/// next takes its place exactly, and the comma before any other. The last of a list whose items
/// each have their comma takes its own along.
std::optional<ByteRange> cutWithComma(std::string_view text, std::span<const ByteRange> comments,
                                      const Siblings& siblings) {
    if (siblings.previousEnd && siblings.trailingComma) {
        const auto lowest = lastCommentEnd(comments, {*siblings.previousEnd, siblings.item.lower});
        return ByteRange{whitespaceRun(siblings.item.lower, text, lowest).lower,
                         *siblings.trailingComma + 1};
    }
    if (siblings.previousEnd) {
        return ByteRange{*siblings.previousEnd, siblings.item.upper};
    }
    if (siblings.nextStart) {
        return ByteRange{siblings.item.lower, *siblings.nextStart};
    }
    return std::nullopt;
}

/// What goes with the only member of an object: everything, or as little as leaves its comments in
/// their lines.
ByteRange cutOnlyMember(std::string_view text, std::span<const ByteRange> comments,
                        ByteRange braces, ByteRange member) {
    if (JSONComments::count(comments, braces) == 0) {
        return braces;
    }
    if (!spansLines(braces, text)) {
        return member;
    }
    return {whitespaceRun(member.lower, text, braces.lower).lower, member.upper};
}

/// A cut may begin right behind a line comment and take its line break along; what follows would
/// then be swallowed by the comment.
bool needsLineBreak(std::string_view text, std::span<const ByteRange> comments, ByteRange cut,
                    std::string_view kept) {
    const auto following = kept.empty() ? text.substr(cut.upper) : kept;
    if (following.starts_with('\n') || following.starts_with("\r\n")) {
        return false;
    }
    const auto after = std::ranges::lower_bound(comments, cut.lower, {}, &ByteRange::lower);
    if (after == comments.begin()) {
        return false;
    }
    const auto before = *std::prev(after);
    return before.upper >= cut.lower && text[before.lower + 1] == '/';
}

} // namespace

Result removeMember(std::string_view text, const JSONDocument& document, const JSONPath& path,
                    std::string_view key) {
    const auto object = document.root().node(path);
    if (!object || !object->isObject()) {
        return failure(JSONEditError::notAnObject(path));
    }
    std::optional<Siblings> siblings;
    std::optional<std::size_t> previousEnd;
    for (const auto& member : object->members()) {
        if (siblings) {
            siblings->nextStart = member.keyStart;
            break;
        }
        const auto end = member.value.end();
        if (member.key == key) {
            siblings = {previousEnd, {member.keyStart, end}, std::nullopt};
        }
        previousEnd = end;
    }
    if (!siblings) {
        return failure(JSONEditError::noSuchMember(path, key));
    }
    const auto comments = document.comments();
    auto whole = siblings->item;
    if (!siblings->nextStart) {
        siblings->trailingComma = trailingComma(text, whole.upper);
        // An object that holds a comma alone would not read.
        whole.upper = siblings->trailingComma ? *siblings->trailingComma + 1 : whole.upper;
    }
    const auto cut = cutWithComma(text, comments, *siblings)
                         .value_or(cutOnlyMember(text, comments, inside(*object), whole));
    const auto newline = lineEnding(text);
    auto kept = JSONComments::preserved(text, comments, cut, newline);
    if (needsLineBreak(text, comments, cut, kept)) {
        kept.insert(0, newline);
    }
    return splice(text, cut, kept);
}

Result removeElement(std::string_view text, const JSONDocument& document, const JSONPath& path,
                     std::ptrdiff_t index) {
    const auto array = document.root().node(path);
    if (!array || !array->isArray()) {
        return failure(JSONEditError::notAnArray(path));
    }
    std::optional<Siblings> siblings;
    std::optional<std::size_t> previousEnd;
    for (std::ptrdiff_t position = 0; const auto element : array->elements()) {
        if (siblings) {
            siblings->nextStart = element.start();
            break;
        }
        if (position++ == index) {
            siblings = {previousEnd, element.range(), std::nullopt};
        }
        previousEnd = element.end();
    }
    if (!siblings) {
        return failure(JSONEditError::noSuchElement(path, index));
    }
    return splice(text, cutWithComma(text, {}, *siblings).value_or(inside(*array)), {});
}

namespace {

template<class Edit> Result scanned(std::string_view text, JSONDialect dialect, Edit edit) {
    const auto document = JSONText::scanWithTrivia(text, dialect);
    if (!document) {
        return std::unexpected(document.error());
    }
    return edit(*document);
}

} // namespace

Result setMember(std::string_view text, const JSONPath& path, std::string_view key,
                 const JSONLiteral& literal, JSONDialect dialect) {
    return scanned(text, dialect, [&](const JSONDocument& document) {
        return setMember(text, document, path, key, literal);
    });
}

Result removeMember(std::string_view text, const JSONPath& path, std::string_view key,
                    JSONDialect dialect) {
    return scanned(text, dialect, [&](const JSONDocument& document) {
        return removeMember(text, document, path, key);
    });
}

Result appendElement(std::string_view text, const JSONPath& path, const JSONLiteral& literal) {
    return scanned(text, JSONDialect::json, [&](const JSONDocument& document) {
        return appendElement(text, document, path, literal);
    });
}

Result removeElement(std::string_view text, const JSONPath& path, std::ptrdiff_t index) {
    return scanned(text, JSONDialect::json, [&](const JSONDocument& document) {
        return removeElement(text, document, path, index);
    });
}

} // namespace JSONEdit
} // namespace wendlow
