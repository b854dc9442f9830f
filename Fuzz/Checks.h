#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

/// What all fuzz programs ask in common.
namespace wendlow::fuzz {

/// Stops the program, so that libFuzzer keeps the input, unless `holds`.
inline void require(bool holds, std::string_view what, std::string_view bytes = {}) {
    if (!holds) {
        std::fprintf(stderr, "broken: %.*s\n%.*s\n", static_cast<int>(what.size()), what.data(),
                     static_cast<int>(bytes.size()), bytes.data());
        std::abort();
    }
}

/// The input in a block of exactly its size: a read outside of it is seen.
class ExactBytes {
public:
    ExactBytes(const std::uint8_t* data, std::size_t size)
        : m_size(size), m_bytes(std::make_unique_for_overwrite<char[]>(size)) {
        if (size > 0) {
            std::memcpy(m_bytes.get(), data, size);
        }
    }
    explicit ExactBytes(std::string_view bytes)
        : ExactBytes(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()) {}
    std::string_view view() const { return {m_bytes.get(), m_size}; }

private:
    std::size_t m_size;
    std::unique_ptr<char[]> m_bytes;
};

} // namespace wendlow::fuzz
