#pragma once

#include <string>

namespace wendlow {

/// Bytes that are no text: base64 in a JSON string on the wire.
struct WireData {
    std::string bytes;

    bool operator==(const WireData&) const = default;
};

} // namespace wendlow
