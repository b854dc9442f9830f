#pragma once

#include <string>
#include <string_view>

namespace wendlow {

/// A file whose existence says that the person quit the product. The application itself neither
/// sets nor reads it. Blocks on the disk.
struct QuitSentinel {
    static constexpr std::string_view fileName = "quit-requested";

    /// In the product's folder in this support folder.
    static std::string defaultPath(std::string_view support);

    bool isSet() const;
    void set() const;   ///< a failure is ignored
    void clear() const; ///< a failure is ignored

    std::string path;
};

} // namespace wendlow
