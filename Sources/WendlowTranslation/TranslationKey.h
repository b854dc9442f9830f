#pragma once

#include <string>
#include <string_view>

namespace wendlow::TranslationKey {

inline constexpr const char* domain = "wendlow";

/// How gettext's files write a sentence that stands in a context.
inline std::string of(std::string_view context, std::string_view english) {
    std::string key;
    key.reserve(context.size() + 1 + english.size());
    return key.append(context).append(1, '\4').append(english);
}

} // namespace wendlow::TranslationKey
