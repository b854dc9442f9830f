// Any file that scans: each edit changes one range and no other byte, the result scans, holds what
// was set and has lost no comment, and what was added can be taken out again without a trace.

#include "ConfigFile/JSONComments.h"
#include "ConfigFile/JSONEdit.h"
#include "JSONChecks.h"

#include <algorithm>
#include <optional>

namespace {

using namespace wendlow;
using fuzz::require;

const JSONLiteral& literal() {
    static const auto value = JSONLiteral::object(
        {{"q\"", JSONLiteral::array({JSONLiteral::number(-7), JSONLiteral::boolean(true)})},
         {"o", JSONLiteral::object({})}});
    return value;
}

using Item = std::pair<std::string, JSONValue>; ///< an element has no key

std::vector<Item> itemsOf(const JSONNode& container, std::string_view bytes) {
    std::vector<Item> items;
    for (const auto& member : container.members()) {
        items.emplace_back(member.key, member.value.value(bytes));
    }
    for (const auto element : container.elements()) {
        items.emplace_back("", element.value(bytes));
    }
    return items;
}

/// The ranges of names with their values, or of elements.
std::vector<ByteRange> rangesOf(const JSONNode& container) {
    std::vector<ByteRange> ranges;
    for (const auto& member : container.members()) {
        ranges.push_back({member.keyStart, member.value.end()});
    }
    for (const auto element : container.elements()) {
        ranges.push_back(element.range());
    }
    return ranges;
}

/// One container of one file, and the edits of it.
class Container {
public:
    Container(std::string_view text, const JSONDocument& document, JSONDialect dialect,
              JSONPath path, JSONNode node)
        : m_text(text), m_document(document), m_dialect(dialect), m_path(std::move(path)),
          m_node(node), m_items(itemsOf(node, text)), m_ranges(rangesOf(node)) {}

    void check() const {
        checkAddition();
        // The first, the last and one between; of duplicate names only the first can be reached.
        for (const auto index : {std::size_t{0}, m_items.size() / 2, m_items.size() - 1}) {
            if (index < m_items.size() && (m_node.isArray() || isFirstOfItsName(index))) {
                checkRemoval(index);
                if (m_node.isObject()) {
                    checkReplacement(index);
                }
            }
        }
    }

private:
    bool isFirstOfItsName(std::size_t index) const {
        return std::ranges::find(m_items, m_items[index].first, &Item::first) ==
               m_items.begin() + static_cast<std::ptrdiff_t>(index);
    }
    ByteRange inside() const { return {m_node.start() + 1, m_node.end() - 1}; }
    std::optional<std::size_t> trailingComma() const {
        const auto next = JSONComments::triviaEnd(m_text, m_ranges.back().upper);
        return m_text[next] == ',' ? std::optional(next) : std::nullopt;
    }

    void checkAddition() const {
        std::string key = m_node.isObject() ? "wendlow\\" : "";
        while (m_node.member(key)) {
            key += 'x';
        }
        const auto after = add(key);
        const auto end = m_ranges.empty() ? 0 : m_ranges.back().upper;
        // Behind a comma, comments stay above what is added.
        const auto range = m_ranges.empty()  ? inside()
                           : trailingComma() ? ByteRange{end, inside().upper}
                                             : ByteRange{end, end};
        auto items = m_items;
        items.emplace_back(key, literal().value());
        checkResult(after, range, items, true);
        if (!m_ranges.empty()) {
            const auto again = m_node.isArray()
                                   ? JSONEdit::removeElement(
                                         after, m_path, static_cast<std::ptrdiff_t>(m_items.size()))
                                   : JSONEdit::removeMember(after, m_path, key, m_dialect);
            require(again && *again == m_text, "an addition left a trace", m_text);
        }
    }
    std::string add(const std::string& key) const {
        return m_node.isArray()
                   ? edited(JSONEdit::appendElement(m_text, m_path, literal()))
                   : edited(JSONEdit::setMember(m_text, m_path, key, literal(), m_dialect));
    }

    void checkReplacement(std::size_t index) const {
        const auto& key = m_items[index].first;
        const auto value = m_node.member(key)->range();
        auto items = m_items;
        items[index].second = literal().value();
        const auto inValue = JSONComments::count(m_document.comments(), value);
        checkResult(edited(JSONEdit::setMember(m_text, m_path, key, literal(), m_dialect)), value,
                    items, inValue == 0);
    }

    void checkRemoval(std::size_t index) const {
        const auto after =
            m_node.isArray()
                ? edited(
                      JSONEdit::removeElement(m_text, m_path, static_cast<std::ptrdiff_t>(index)))
                : edited(JSONEdit::removeMember(m_text, m_path, m_items[index].first, m_dialect));
        auto range = inside();
        if (m_ranges.size() > 1) {
            range = index == 0 ? ByteRange{m_ranges[0].lower, m_ranges[1].lower}
                               : ByteRange{m_ranges[index - 1].upper, m_ranges[index].upper};
        }
        if (index > 0 && index + 1 == m_ranges.size() && trailingComma()) {
            range.upper = *trailingComma() + 1;
        }
        auto items = m_items;
        items.erase(items.begin() + static_cast<std::ptrdiff_t>(index));
        checkResult(after, range, items, true);
    }

    std::string edited(const JSONEdit::Result& result) const {
        require(result.has_value(), "an edit was refused", m_text);
        return *result;
    }

    void checkResult(const std::string& after, ByteRange range, const std::vector<Item>& items,
                     bool keepsComments) const {
        require(after.starts_with(m_text.substr(0, range.lower)) &&
                    after.ends_with(m_text.substr(range.upper)) &&
                    after.size() >= m_text.size() - range.size(),
                "bytes outside the range changed", after);
        const fuzz::ExactBytes exact(after);
        const auto document = fuzz::scanned(exact.view(), m_dialect, "an edit made no JSON");
        const auto node = document.root().node(m_path);
        require(node && itemsOf(*node, exact.view()) == items, "not what was asked for", after);
        if (keepsComments) {
            checkComments(document, exact.view());
        }
    }

    void checkComments(const JSONDocument& document, std::string_view after) const {
        const auto old = fuzz::commentTexts(m_document, m_text);
        const auto kept = fuzz::commentTexts(document, after);
        require(old.size() == kept.size(), "a comment was lost or made", after);
        for (std::size_t index = 0; index < old.size(); ++index) {
            // What was not UTF-8 may have been repaired.
            const bool repaired = kept[index].find("\uFFFD") != std::string::npos;
            require(repaired || old[index] == kept[index], "a comment changed", after);
        }
    }

    std::string_view m_text;
    const JSONDocument& m_document;
    JSONDialect m_dialect;
    JSONPath m_path;
    JSONNode m_node;
    std::vector<Item> m_items;
    std::vector<ByteRange> m_ranges;
};

/// The paths of at most `most` containers that a path can reach, the root first.
void collectContainers(const JSONNode& root, const JSONPath& path, std::size_t most,
                       std::vector<JSONPath>& found) {
    const auto node = *root.node(path);
    if (found.size() >= most || !(node.isObject() || node.isArray())) {
        return;
    }
    found.push_back(path);
    const auto descend = [&](const JSONStep& step, const JSONNode& child) {
        auto inner = path;
        inner.push_back(step);
        if (root.node(inner)->start() == child.start()) {
            collectContainers(root, inner, most, found);
        }
    };
    for (const auto& member : node.members()) {
        descend(member.key, member.value);
    }
    for (std::ptrdiff_t index = 0; const auto element : node.elements()) {
        descend(index++, element);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::ExactBytes input(data, size);
    const auto text = input.view();
    for (const auto dialect : {JSONDialect::json, JSONDialect::jsonWithComments}) {
        const auto document = JSONText::scanWithTrivia(text, dialect);
        if (!document) {
            continue;
        }
        std::vector<JSONPath> paths;
        collectContainers(document->root(), {}, 8, paths);
        for (const auto& path : paths) {
            const auto node = *document->root().node(path);
            // Elements are edited in strict JSON only.
            if (node.isObject() || dialect == JSONDialect::json) {
                Container(text, *document, dialect, path, node).check();
            }
        }
    }
    return 0;
}
