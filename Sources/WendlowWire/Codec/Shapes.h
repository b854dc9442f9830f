#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include <boost/describe/members.hpp>
#include <boost/mp11/algorithm.hpp>

#include "GatewayRequest.h"
#include "RawString.h"

/// The shapes of the contract's types, by which the writer and the reader choose what to do.
namespace wendlow::Codec {

template<class T> constexpr bool isOptional = false;
template<class T> constexpr bool isOptional<std::optional<T>> = true;
template<class T> constexpr bool isList = false;
template<class T> constexpr bool isList<std::vector<T>> = true;
template<class T> constexpr bool isDictionary = false;
template<class T> constexpr bool isDictionary<std::map<std::string, T>> = true;

template<class T>
concept TaggedVariant = requires {
    typename T::variant;
    { T::typeName } -> std::convertible_to<std::string_view>;
};

template<class T>
concept Record = boost::describe::has_describe_members<T>::value;

template<class T> using Fields = boost::describe::describe_members<T, boost::describe::mod_public>;

/// Requests for reading have a decoder of their own: it fills in absent booleans and lists, and
/// does not look at the value of a case without a payload.
template<class Variant> constexpr bool hasLenientReader = std::is_same_v<Variant, ReadRequest>;

/// The envelope of a request takes one key at both of its levels: beside the payload stands
/// nothing.
template<class Variant> constexpr bool isEnvelope = std::is_same_v<Variant, GatewayRequest>;

/// Whether a record names this field as one that its reader fills in.
template<class Owner> constexpr bool isDefaulted(std::string_view field) {
    if constexpr (requires { Owner::defaulted; })
        for (const std::string_view name : Owner::defaulted)
            if (name == field)
                return true;
    return false;
}

/// Calls `visit` with a descriptor of each field, in order, until one answers false.
template<class T, class Visit> bool allFields(Visit&& visit) {
    bool good = true;
    boost::mp11::mp_for_each<Fields<T>>([&](auto field) { good = good && visit(field); });
    return good;
}

} // namespace wendlow::Codec
