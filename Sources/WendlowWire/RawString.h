#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>

#include <boost/describe/enumerators.hpp>
#include <boost/mp11/algorithm.hpp>

namespace wendlow {

/// An enum of the contract that is a bare string on the wire: the name of its case.
template<class T>
concept StringVariant = std::is_enum_v<T> && boost::describe::has_describe_enumerators<T>::value;

/// All cases, in the order in which they are declared.
template<StringVariant T> constexpr auto allCases() {
    using Cases = boost::describe::describe_enumerators<T>;
    std::array<T, boost::mp11::mp_size<Cases>::value> all{};
    std::size_t count = 0;
    boost::mp11::mp_for_each<Cases>([&](auto which) { all[count++] = which.value; });
    return all;
}

/// As the case is written on the wire. Empty for what is none of the cases.
template<StringVariant T> constexpr std::string_view rawString(T value) {
    std::string_view raw;
    boost::mp11::mp_for_each<boost::describe::describe_enumerators<T>>([&](auto which) {
        if (which.value == value)
            raw = which.name;
    });
    return raw;
}

/// The case that is written so, to the letter.
template<StringVariant T> constexpr std::optional<T> fromRawString(std::string_view raw) {
    std::optional<T> found;
    boost::mp11::mp_for_each<boost::describe::describe_enumerators<T>>([&](auto which) {
        if (which.name == raw)
            found = which.value;
    });
    return found;
}

} // namespace wendlow
