#include "ConfigFile/JSONLiteral.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <optional>

namespace wendlow {

namespace {

/// Writes one literal and what it contains to the end of one text.
class Rendering {
public:
    Rendering(std::string_view unit, const RenderStyle& style, std::string& out)
        : m_unit(unit), m_style(style), m_out(out) {}

    void add(const JSONLiteral& literal, const std::string& indent) {
        std::visit([&](const auto& content) { write(content, indent); }, literal.content);
    }

private:
    void write(const JSONLiteral::Object& members, const std::string& indent) {
        writeContainer('{', members, '}', indent, [this](const auto& member, const auto& inner) {
            m_out += JSONLiteral::quote(member.key);
            m_out += m_style.multiline ? ": " : ":";
            add(member.value, inner);
        });
    }
    void write(const JSONLiteral::Array& elements, const std::string& indent) {
        writeContainer('[', elements, ']', indent,
                       [this](const auto& element, const auto& inner) { add(element, inner); });
    }
    void write(const std::string& text, const std::string& /*indent*/) {
        m_out += JSONLiteral::quote(text);
    }
    void write(std::int64_t number, const std::string& /*indent*/) {
        fmt::format_to(std::back_inserter(m_out), "{}", number);
    }
    void write(bool value, const std::string& /*indent*/) { m_out += value ? "true" : "false"; }

    template<typename Items, typename Write>
    void writeContainer(char open, const Items& items, char close, const std::string& indent,
                        Write writeItem) {
        m_out += open;
        if (!items.empty()) {
            const auto inner = m_style.multiline ? indent + std::string(m_unit) : std::string();
            for (const auto& item : items) {
                if (&item != &items.front()) {
                    m_out += ',';
                }
                breakLine(inner);
                writeItem(item, inner);
            }
            breakLine(indent);
        }
        m_out += close;
    }
    void breakLine(const std::string& indent) {
        if (m_style.multiline) {
            m_out += m_style.newline;
            m_out += indent;
        }
    }

    std::string_view m_unit;
    const RenderStyle& m_style;
    std::string& m_out;
};

struct PlainView {
    JSONValue operator()(const JSONLiteral::Object& members) const {
        JSONValue::Object object;
        for (const auto& member : members) {
            object.insert_or_assign(member.key, member.value.value());
        }
        return {std::move(object)};
    }
    JSONValue operator()(const JSONLiteral::Array& elements) const {
        JSONValue::Array array;
        for (const auto& element : elements) {
            array.push_back(element.value());
        }
        return {std::move(array)};
    }
    JSONValue operator()(const std::string& text) const { return {text}; }
    JSONValue operator()(std::int64_t number) const {
        return {JSONValue::Number{fmt::format("{}", number)}};
    }
    JSONValue operator()(bool value) const { return {value}; }
};

/// Whether a node states what stands in a literal.
struct Statement {
    const JSONNode& node;
    std::string_view bytes;

    /// Of a repeated name the last member counts, on either side.
    bool operator()(const JSONLiteral::Object& members) const {
        const auto isNamed = [&](const JSONNode::Member& stated) {
            return std::ranges::count(members, stated.key, &JSONLiteral::Member::key) > 0;
        };
        // Nearly always it is as it was written, in our order.
        const auto isWritten = [&](const JSONLiteral::Member& own, const JSONNode::Member& stated) {
            return own.key == stated.key && own.value.isStatedBy(stated.value, bytes);
        };
        if (node.isObject() && std::ranges::equal(members, node.members(), isWritten))
            return true;
        if (!node.isObject() || !std::ranges::all_of(node.members(), isNamed))
            return false;
        for (auto own = members.begin(); own != members.end(); ++own) {
            if (std::find_if(std::next(own), members.end(), [&](const auto& later) {
                    return later.key == own->key;
                }) != members.end())
                continue;
            std::optional<JSONNode> last;
            for (const JSONNode::Member& stated : node.members())
                if (stated.key == own->key)
                    last = stated.value;
            if (!last || !own->value.isStatedBy(*last, bytes))
                return false;
        }
        return true;
    }
    bool operator()(const JSONLiteral::Array& elements) const {
        return node.isArray() &&
               std::ranges::equal(elements, node.elements(),
                                  [&](const JSONLiteral& own, const JSONNode& stated) {
                                      return own.isStatedBy(stated, bytes);
                                  });
    }
    bool operator()(const std::string& text) const { return node.string() == text; }
    bool operator()(std::int64_t number) const {
        return node.kind() == JSONNode::Kind::number &&
               bytes.substr(node.start(), node.range().size()) ==
                   std::string_view(fmt::format_int(number).c_str());
    }
    bool operator()(bool value) const { return node.boolean() == value; }
};

} // namespace

JSONValue JSONLiteral::value() const {
    return std::visit(PlainView(), content);
}

bool JSONLiteral::isStatedBy(const JSONNode& node, std::string_view bytes) const {
    return std::visit(Statement{node, bytes}, content);
}

std::string JSONLiteral::render(std::string_view indent, std::string_view unit,
                                const RenderStyle& style) const {
    std::string out;
    Rendering(unit, style, out).add(*this, std::string(indent));
    return out;
}

std::string JSONLiteral::quote(std::string_view text) {
    std::string out = "\"";
    for (const char character : text) {
        switch (character) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\b':
            out += "\\b";
            break;
        case '\t':
            out += "\\t";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\f':
            out += "\\f";
            break;
        case '\r':
            out += "\\r";
            break;
        default:
            if (static_cast<unsigned char>(character) < 0x20) {
                fmt::format_to(std::back_inserter(out), "\\u{:04x}", character);
            } else {
                out += character;
            }
        }
    }
    out += '"';
    return out;
}

} // namespace wendlow
