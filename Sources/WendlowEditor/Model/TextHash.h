#pragma once

#include <functional>
#include <string_view>

namespace wendlow {

/// For containers keyed by text in which a look-up by a view makes no string.
struct TextHash : std::hash<std::string_view> {
    using is_transparent = void;
};

} // namespace wendlow
