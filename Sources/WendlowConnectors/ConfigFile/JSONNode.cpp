#include "ConfigFile/JSONNode.h"

#include <iterator>
#include <string>
#include <utility>

namespace wendlow {

JSONNode::Kind JSONNode::kind() const {
    switch (m_tape->tag(m_index)) {
    case JSONTape::Tag::object:
        return Kind::object;
    case JSONTape::Tag::array:
        return Kind::array;
    case JSONTape::Tag::string:
    case JSONTape::Tag::escapedString:
        return Kind::string;
    case JSONTape::Tag::trueLiteral:
    case JSONTape::Tag::falseLiteral:
        return Kind::boolean;
    case JSONTape::Tag::number:
        return Kind::number;
    case JSONTape::Tag::null:
    case JSONTape::Tag::close: // no node is made of a closing entry
        break;
    }
    return Kind::null;
}

std::size_t JSONNode::start() const {
    return m_tape->start(m_index);
}

std::size_t JSONNode::end() const {
    return m_tape->end(m_index);
}

std::size_t JSONNode::count() const {
    if (isObject()) {
        return static_cast<std::size_t>(std::ranges::distance(members()));
    }
    return static_cast<std::size_t>(std::ranges::distance(elements()));
}

JSONNode::MemberRange JSONNode::members() const {
    if (!isObject()) {
        return {m_tape, m_index, m_index};
    }
    return {m_tape, m_tape->firstInside(m_index), m_tape->endInside(m_index)};
}

JSONNode::ElementRange JSONNode::elements() const {
    if (!isArray()) {
        return {m_tape, m_index, m_index};
    }
    return {m_tape, m_tape->firstInside(m_index), m_tape->endInside(m_index)};
}

std::optional<std::string_view> JSONNode::string() const {
    if (kind() != Kind::string) {
        return std::nullopt;
    }
    return m_tape->text(m_index);
}

std::optional<bool> JSONNode::boolean() const {
    if (kind() != Kind::boolean) {
        return std::nullopt;
    }
    return m_tape->tag(m_index) == JSONTape::Tag::trueLiteral;
}

std::optional<JSONNode> JSONNode::member(std::string_view key) const {
    if (!isObject()) {
        return std::nullopt;
    }
    const auto end = m_tape->endInside(m_index);
    for (auto name = m_tape->firstInside(m_index); name != end;) {
        const auto value = m_tape->after(name);
        if (m_tape->text(name) == key) {
            return JSONNode(m_tape, value);
        }
        name = m_tape->after(value);
    }
    return std::nullopt;
}

std::optional<JSONNode> JSONNode::element(std::ptrdiff_t index) const {
    for (const auto element : elements()) {
        if (index-- == 0) {
            return element;
        }
    }
    return std::nullopt;
}

std::optional<JSONNode> JSONNode::node(const JSONPath& path) const {
    std::optional<JSONNode> here = *this;
    for (const auto& [step] : path) {
        const auto* key = std::get_if<std::string>(&step);
        here = key != nullptr ? here->member(*key) : here->element(std::get<std::ptrdiff_t>(step));
        if (!here) {
            return std::nullopt;
        }
    }
    return here;
}

JSONValue JSONNode::value(std::string_view bytes) const {
    switch (kind()) {
    case Kind::object: {
        JSONValue::Object object;
        for (const auto& member : members()) {
            object.insert_or_assign(std::string(member.key), member.value.value(bytes));
        }
        return {std::move(object)};
    }
    case Kind::array: {
        JSONValue::Array array;
        for (const auto element : elements()) {
            array.push_back(element.value(bytes));
        }
        return {std::move(array)};
    }
    case Kind::string:
        return {std::string(*string())};
    case Kind::boolean:
        return {*boolean()};
    case Kind::number:
        return {JSONValue::Number{std::string(bytes.substr(start(), end() - start()))}};
    case Kind::null:
        break;
    }
    return {JSONValue::Null{}};
}

} // namespace wendlow
