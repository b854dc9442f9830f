#pragma once

#include <cstdint>
#include <expected>
#include <string>
#include <string_view>

#include <boost/json/value.hpp>
#include <fmt/format.h>

#include "Codec/Shapes.h"
#include "FilterValue.h"
#include "OpenCase.h"
#include "WireCodec.h"
#include "WireData.h"

namespace wendlow::Codec {

/// Reads one value out of a JSON document. Every `read` answers whether it could; its target holds
/// nothing of use after a failure.
class Reader {
public:
    using Value = boost::json::value;
    using Object = boost::json::object;

    template<class T> bool read(const Value& json, std::optional<T>& value) {
        return read(json, value.emplace());
    }
    bool read(const Value& json, bool& value);
    bool read(const Value& json, std::int64_t& value);
    bool read(const Value& json, double& value);
    bool read(const Value& json, std::string& value);
    bool read(const Value& json, WireData& value);
    bool read(const Value& json, FilterValue& value);

    template<StringVariant T> bool read(const Value& json, T& value) {
        std::string raw;
        if (!read(json, raw))
            return false;
        const std::optional<T> known = fromRawString<T>(raw);
        value = known.value_or(value);
        return known.has_value() || fail(fmt::format("\"{}\" is none of the known words", raw));
    }

    template<StringVariant T> bool read(const Value& json, OpenCase<T>& value) {
        std::string word;
        const bool good = read(json, word);
        value = OpenCase<T>::ofWord(std::move(word));
        return good;
    }

    template<class T> bool read(const Value& json, std::vector<T>& list) {
        const auto* array = json.if_array();
        if (array == nullptr)
            return wrongKind("a list", json);
        list.resize(array->size());
        for (std::size_t index = 0; index < list.size(); ++index)
            if (!read((*array)[index], list[index]))
                return failed(index);
        return true;
    }

    template<class T> bool read(const Value& json, std::map<std::string, T>& dictionary) {
        const Object* object = json.if_object();
        if (object == nullptr)
            return wrongKind("an object", json);
        for (const auto& member : *object)
            if (!read(member.value(), dictionary[std::string(member.key())]))
                return failed(member.key());
        return true;
    }

    template<Record T> bool read(const Value& json, T& record) {
        return readFields<Absent::refused>(json, record);
    }

    template<TaggedVariant T> bool read(const Value& json, T& variant) {
        const Object* object = json.if_object();
        if (object == nullptr)
            return wrongKind("an object", json);
        if (object->size() != 1)
            return fail(hasLenientReader<T> ? fmt::format("{} expects exactly one case key, got {}",
                                                          T::typeName, object->size())
                                            : std::string(notOneKey));
        const auto& [name, payload] = *object->begin();
        return readCase(std::string_view(name), payload, variant,
                        static_cast<const typename T::variant*>(nullptr));
    }

    DecodeError takeError() { return std::move(m_error); }

private:
    static constexpr std::string_view notOneKey = "Invalid number of keys found, expected one.";

    /// What becomes of a boolean or a list that is absent and neither optional nor defaulted.
    enum class Absent { refused, filledIn };

    template<class T, class... Cases>
    bool readCase(std::string_view name, const Value& payload, T& variant,
                  const std::variant<Cases...>* /*cases*/) {
        bool known = false;
        bool good = false;
        const auto tryCase = [&]<class Case>(const Case* /*which*/) {
            if (known || name != Case::wireName)
                return;
            known = true;
            Case value;
            good = readPayload<T>(payload, value) || failed(name);
            if (good)
                variant = std::move(value);
        };
        (tryCase(static_cast<const Cases*>(nullptr)), ...);
        return known ? good : fail(fmt::format("Unknown {} case: {}", T::typeName, name));
    }

    template<class T, class Case> bool readPayload(const Value& payload, Case& value) {
        constexpr bool lenient = hasLenientReader<T>;
        if constexpr (lenient && boost::mp11::mp_empty<Fields<Case>>::value)
            return true;
        if (!readFields<lenient ? Absent::filledIn : Absent::refused>(payload, value))
            return false;
        if constexpr (isRequest<T> && hasUnlabelledItem<Case>)
            if (!holdsOnlyFields<Case>(payload.get_object()))
                return fail(std::string(notOneKey));
        return true;
    }

    template<class T> static bool holdsOnlyFields(const Object& object) {
        for (const auto& member : object) {
            const auto isOther = [&](auto field) { return member.key() != field.name; };
            if (allFields<T>(isOther))
                return false;
        }
        return true;
    }

    template<Absent absent, class T> bool readFields(const Value& json, T& record) {
        const Object* object = json.if_object();
        if (object == nullptr)
            return wrongKind("an object", json);
        const auto* next = object->begin();
        return allFields<T>([&](auto field) {
            auto& target = record.*field.pointer;
            using Field = std::remove_reference_t<decltype(target)>;
            const Value* value = nullptr;
            // Most peers write the fields in their order, so that no search is needed.
            if (next != object->end() && next->key() == std::string_view(field.name))
                value = &(next++)->value();
            else
                value = object->if_contains(field.name);
            if (value != nullptr && !value->is_null())
                return read(*value, target) || failed(field.name);
            constexpr bool fillsIn =
                absent == Absent::filledIn && (std::is_same_v<Field, bool> || isList<Field>);
            if (isOptional<Field> || fillsIn || isDefaulted<T>(field.name))
                return true;
            return fail("this key is missing") || failed(field.name);
        });
    }

    bool wrongKind(std::string_view wanted, const Value& found);
    bool failed(std::string_view key);
    bool failed(std::size_t index);
    bool fail(std::string sentence);

    DecodeError m_error;
};

} // namespace wendlow::Codec
