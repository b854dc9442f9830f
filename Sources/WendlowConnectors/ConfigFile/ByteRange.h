#pragma once

#include <cstddef>

namespace wendlow {

/// A half-open range of byte offsets, `lower..<upper`, into the bytes that were scanned.
struct ByteRange {
    std::size_t lower = 0;
    std::size_t upper = 0;

    std::size_t size() const { return upper - lower; }
    bool operator==(const ByteRange&) const = default;
};

} // namespace wendlow
