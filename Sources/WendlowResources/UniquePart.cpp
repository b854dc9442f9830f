#include "UniquePart.h"

#include <array>
#include <cstdint>
#include <random>

#include <fmt/format.h>

namespace wendlow {

std::string uniquePart() {
    std::random_device random;
    std::array<std::uint32_t, 4> bits{};
    for (std::uint32_t& word : bits)
        word = random();
    constexpr std::uint32_t version = 0x4000;
    constexpr std::uint32_t variant = 0x8000;
    return fmt::format("{:08x}-{:04x}-{:04x}-{:04x}-{:04x}{:08x}", bits[0], bits[1] >> 16U,
                       (bits[1] & 0x0fffU) | version, (bits[2] >> 16U & 0x3fffU) | variant,
                       bits[2] & 0xffffU, bits[3]);
}

} // namespace wendlow
