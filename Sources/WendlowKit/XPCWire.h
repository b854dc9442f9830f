#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "XPC/XPCObject.h"

/// The keys of the messages, read and written. Pure; any thread.
namespace wendlow::XPCWire {

/// Also when the bytes are empty.
void set(std::string bytes, std::string_view key, xpc_object_t& dictionary);

/// The bytes under a key; null when the key is missing and when the value is empty.
const std::string* data(std::string_view key, const xpc_object_t& dictionary);

void setWire(std::uint64_t version, xpc_object_t& dictionary);

// A number above the largest signed integer ends the process in the following two: only a broken
// peer sends one.

/// The peer's version; nothing when the key is missing. What is there and is no number counts as 0.
std::optional<std::int64_t> wireVersion(const xpc_object_t& dictionary);

/// How long the daemon took; nothing when the key is missing.
std::optional<std::chrono::milliseconds> servedDuration(const xpc_object_t& dictionary);

} // namespace wendlow::XPCWire
