#include "XPCWire.h"

#include <utility>

#include <QtGlobal>

#include "XPCEndpoint.h"

namespace wendlow::XPCWire {

namespace {

std::optional<std::int64_t> number(std::string_view key, const xpc_object_t& dictionary) {
    if (!xpc_dictionary_get_value(dictionary, key))
        return std::nullopt;
    const std::uint64_t value = xpc_dictionary_get_uint64(dictionary, key);
    if (!std::in_range<std::int64_t>(value))
        qFatal("the gateway sent a number that no version and no duration can be");
    return static_cast<std::int64_t>(value);
}

} // namespace

void set(std::string bytes, std::string_view key, xpc_object_t& dictionary) {
    xpc_dictionary_set_data(dictionary, key, std::move(bytes));
}

const std::string* data(std::string_view key, const xpc_object_t& dictionary) {
    const std::string* const bytes = xpc_dictionary_get_data(dictionary, key);
    return bytes && !bytes->empty() ? bytes : nullptr;
}

void setWire(std::uint64_t version, xpc_object_t& dictionary) {
    xpc_dictionary_set_uint64(dictionary, XPCEndpoint::wireKey, version);
}

std::optional<std::int64_t> wireVersion(const xpc_object_t& dictionary) {
    return number(XPCEndpoint::wireKey, dictionary);
}

std::optional<std::chrono::milliseconds> servedDuration(const xpc_object_t& dictionary) {
    return number(XPCEndpoint::servedKey, dictionary).transform([](std::int64_t milliseconds) {
        return std::chrono::milliseconds(milliseconds);
    });
}

} // namespace wendlow::XPCWire
