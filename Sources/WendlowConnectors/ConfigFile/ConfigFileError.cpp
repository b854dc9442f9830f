#include "ConfigFile/ConfigFileError.h"

#include "Say.h"

#include <utility>

namespace wendlow {

ConfigFileError ConfigFileError::writeFailed(std::string path, std::string reason) {
    return {Kind::writeFailed, std::move(path), std::move(reason)};
}

ConfigFileError ConfigFileError::notWritable(std::string path) {
    return {Kind::notWritable, std::move(path), {}};
}

std::string ConfigFileError::description() const {
    if (kind == Kind::notWritable)
        return say("{} cannot be written by this user", path);
    return say("{} could not be written: {}", path, reason);
}

} // namespace wendlow
