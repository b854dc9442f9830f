#pragma once

#include <string>

namespace wendlow {

/// Why a file could not be written or copied.
struct ConfigFileError {
    enum class Kind { writeFailed, notWritable };

    Kind kind = Kind::writeFailed;
    std::string path;
    std::string reason; ///< as a person reads it; empty for `notWritable`

    static ConfigFileError writeFailed(std::string path, std::string reason);
    static ConfigFileError notWritable(std::string path);

    std::string description() const;
    bool operator==(const ConfigFileError&) const = default;
};

} // namespace wendlow
