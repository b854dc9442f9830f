#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <variant>

namespace wendlow {

struct xpc_object_t;

/// A message that failed, in words for a log.
struct XPCError {
    /// What failed with it.
    enum class Extent {
        message,    ///< it alone: whoever answers, answered so
        connection, ///< everything: the bus has gone, or whoever owned the name
    };

    std::string description;
    Extent extent = Extent::connection;
};

/// A value of a type that the messages of this service do not have.
struct XPCOther {};

using XPCDictionary = std::map<std::string, xpc_object_t, std::less<>>;

/// A message or a value in one. Plain data, free to cross threads.
struct xpc_object_t
    : std::variant<XPCOther, XPCError, XPCDictionary, std::string, std::uint64_t, bool> {
    using variant::variant;
};

/// In the order of the variant.
enum class xpc_type_t { other, error, dictionary, data, uint64, boolean };

xpc_type_t xpc_get_type(const xpc_object_t& object);

xpc_object_t xpc_dictionary_create();

// The object of the following is a dictionary; on any other the writes do nothing and the reads
// find nothing.

void xpc_dictionary_set_data(xpc_object_t& dictionary, std::string_view key, std::string bytes);
void xpc_dictionary_set_uint64(xpc_object_t& dictionary, std::string_view key, std::uint64_t value);
void xpc_dictionary_set_bool(xpc_object_t& dictionary, std::string_view key, bool value);

/// The value under a key, of whichever type; null when the key is missing.
const xpc_object_t* xpc_dictionary_get_value(const xpc_object_t& dictionary, std::string_view key);
/// Null when the key is missing or holds no data.
const std::string* xpc_dictionary_get_data(const xpc_object_t& dictionary, std::string_view key);
/// 0 when the key is missing or holds no such number.
std::uint64_t xpc_dictionary_get_uint64(const xpc_object_t& dictionary, std::string_view key);

} // namespace wendlow
