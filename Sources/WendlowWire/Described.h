#pragma once

#include <string_view>
#include <type_traits>

#include <boost/describe/class.hpp>

/// A record, a case or a request of the contract is described once, by one line at the end of its
/// struct; the codec and comparison come from that line. A field's name is its key on the wire. A
/// payload item without a label is the field `_0` (a second one `_1`). Fields are described in the
/// order in which they are written.
///
/// Field types the codec knows: bool, std::int64_t, double, std::string, WireData, a described
/// enum, an OpenCase of one, a record, a tagged variant, FilterValue, and of these std::optional,
/// std::vector and std::map with string keys. An optional field is left out while it is absent.
///
/// A struct may name fields that a reader fills in by itself when they are absent:
/// `static constexpr std::string_view defaulted[] = {"offset"};`

#define WENDLOW_RECORD(Type, ...)                                                                  \
    BOOST_DESCRIBE_CLASS(Type, (), (__VA_ARGS__), (), ())                                          \
    bool operator==(const Type&) const = default

/// One case of a tagged variant: its struct, its name on the wire, its fields.
#define WENDLOW_CASE(Type, caseName, ...)                                                          \
    static constexpr std::string_view wireName = caseName;                                         \
    WENDLOW_RECORD(Type, __VA_ARGS__)

/// One case of a request: as above, and the verb that names it in logs and refusals.
#define WENDLOW_REQUEST(Type, caseName, verbText, ...)                                             \
    static constexpr std::string_view verb = verbText;                                             \
    WENDLOW_CASE(Type, caseName, __VA_ARGS__)

// NOLINTBEGIN(bugprone-macro-parentheses): a type in a declaration takes none.

/// In a struct of many cases, derived from their `std::variant`: what copies, moves, compares and
/// destroys visits every case, so it is compiled once, by `WENDLOW_CASES_DEFINED` in one source,
/// and not in each file through whose hands such a value goes.
#define WENDLOW_CASES(Type)                                                                        \
    using variant::variant;                                                                        \
    Type();                                                                                        \
    Type(const Type& other);                                                                       \
    Type(Type&& other) noexcept;                                                                   \
    Type& operator=(const Type& other);                                                            \
    Type& operator=(Type&& other) noexcept;                                                        \
    ~Type();                                                                                       \
    bool operator==(const Type& other) const

/// The moves promise not to throw, as containers want it; the variant has to keep that promise.
#define WENDLOW_CASES_DEFINED(Type)                                                                \
    static_assert(std::is_nothrow_move_constructible_v<Type::variant>);                            \
    static_assert(std::is_nothrow_move_assignable_v<Type::variant>);                               \
    Type::Type() = default;                                                                        \
    Type::Type(const Type& other) = default;                                                       \
    Type::Type(Type&& other) noexcept = default;                                                   \
    Type& Type::operator=(const Type& other) = default;                                            \
    Type& Type::operator=(Type&& other) noexcept = default;                                        \
    Type::~Type() = default;                                                                       \
    bool Type::operator==(const Type& other) const {                                               \
        return static_cast<const variant&>(*this) == static_cast<const variant&>(other);           \
    }

// NOLINTEND(bugprone-macro-parentheses)
