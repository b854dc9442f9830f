#include "XPC/XPCObject.h"

#include <utility>

namespace wendlow {

namespace {

void set(xpc_object_t& dictionary, std::string_view key, xpc_object_t value) {
    if (auto* const entries = std::get_if<XPCDictionary>(&dictionary))
        entries->insert_or_assign(std::string(key), std::move(value));
}

template<class T> const T* get(const xpc_object_t& dictionary, std::string_view key) {
    const xpc_object_t* const value = xpc_dictionary_get_value(dictionary, key);
    return value ? std::get_if<T>(value) : nullptr;
}

} // namespace

xpc_type_t xpc_get_type(const xpc_object_t& object) {
    return static_cast<xpc_type_t>(object.index());
}

xpc_object_t xpc_dictionary_create() {
    return XPCDictionary();
}

void xpc_dictionary_set_data(xpc_object_t& dictionary, std::string_view key, std::string bytes) {
    set(dictionary, key, std::move(bytes));
}

void xpc_dictionary_set_uint64(xpc_object_t& dictionary, std::string_view key,
                               std::uint64_t value) {
    set(dictionary, key, value);
}

void xpc_dictionary_set_bool(xpc_object_t& dictionary, std::string_view key, bool value) {
    set(dictionary, key, value);
}

const xpc_object_t* xpc_dictionary_get_value(const xpc_object_t& dictionary, std::string_view key) {
    const auto* const entries = std::get_if<XPCDictionary>(&dictionary);
    if (!entries)
        return nullptr;
    const auto entry = entries->find(key);
    return entry == entries->end() ? nullptr : &entry->second;
}

const std::string* xpc_dictionary_get_data(const xpc_object_t& dictionary, std::string_view key) {
    return get<std::string>(dictionary, key);
}

std::uint64_t xpc_dictionary_get_uint64(const xpc_object_t& dictionary, std::string_view key) {
    const auto* const value = get<std::uint64_t>(dictionary, key);
    return value ? *value : 0;
}

} // namespace wendlow
