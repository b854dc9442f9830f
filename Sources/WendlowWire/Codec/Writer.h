#pragma once

#include <cstdint>
#include <expected>
#include <string>
#include <string_view>

#include "Codec/Shapes.h"
#include "FilterValue.h"
#include "OpenCase.h"
#include "WireCodec.h"
#include "WireData.h"

namespace wendlow::Codec {

/// Writes one value as JSON. Every `write` answers whether it could; after a failure the text is of
/// no use.
class Writer {
public:
    template<class T> static std::expected<std::string, EncodeError> encoded(const T& value) {
        Writer writer;
        if (!writer.write(value))
            return std::unexpected(std::move(writer.m_error));
        return std::move(writer.m_text);
    }

private:
    bool write(bool value);
    bool write(std::int64_t value);
    bool write(double value);
    bool write(const std::string& value);
    bool write(const WireData& value);
    bool write(const FilterValue& value);

    template<StringVariant T> bool write(T value) {
        m_text.append("\"").append(rawString(value)).append("\"");
        return true;
    }

    template<StringVariant T> bool write(const OpenCase<T>& value) { return text(value.word()); }

    template<class T> bool write(const std::vector<T>& list) {
        m_text += '[';
        for (std::size_t index = 0; index < list.size(); ++index) {
            if (index > 0)
                m_text += ',';
            if (!write(list[index]))
                return failed(index);
        }
        m_text += ']';
        return true;
    }

    template<class T> bool write(const std::map<std::string, T>& dictionary) {
        m_text += '{';
        bool first = true;
        for (const auto& [name, value] : dictionary) {
            if (!std::exchange(first, false))
                m_text += ',';
            if (!text(name))
                return failed(name);
            m_text += ':';
            if (!write(value))
                return failed(name);
        }
        m_text += '}';
        return true;
    }

    template<Record T> bool write(const T& record) {
        m_text += '{';
        bool first = true;
        const bool good = allFields<T>(
            [&](auto field) { return member(field.name, record.*field.pointer, first); });
        m_text += '}';
        return good;
    }

    template<TaggedVariant T> bool write(const T& variant) {
        return std::visit(
            [this]<class Case>(const Case& value) {
                m_text += '{';
                bool first = true;
                const bool good = member(Case::wireName, value, first);
                m_text += '}';
                return good;
            },
            variant);
    }

    template<class T> bool member(std::string_view name, const T& value, bool& first) {
        if constexpr (isOptional<T>) {
            return !value || member(name, *value, first);
        } else {
            if (!std::exchange(first, false))
                m_text += ',';
            // The contract's own names need no escape.
            m_text.append("\"").append(name).append("\":");
            return write(value) || failed(name);
        }
    }

    bool text(std::string_view value);
    bool failed(std::string_view step);
    bool failed(std::size_t index);
    bool fail(std::string sentence);

    std::string m_text;
    EncodeError m_error;
};

} // namespace wendlow::Codec
