#pragma once

#include <string_view>

/// The words of a migration's key hand-over. The key goes through pipes beside the message, since
/// a key must not sit in one; when it cannot, one of these sentences is the answer's `failure`.
namespace wendlow::StoreKeyWire {

/// The entry of the message that holds the pipes' file descriptors.
inline constexpr std::string_view descriptorsKey = "store_key_fds";

inline constexpr std::string_view noKeyOnThisProfile = "no key on this profile";
inline constexpr std::string_view noKeyResolved =
    "this daemon has resolved no store key, so it can hand none";
inline constexpr std::string_view refused = "this door does not hand the store key to that peer";
inline constexpr std::string_view noPipe =
    "the store key could not be put on a pipe; nothing was handed over";

} // namespace wendlow::StoreKeyWire
