#include "Seeded/SeededScreens.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace wendlow {

namespace {

using Byte = std::uint8_t;
using Word = std::uint32_t;

constexpr int width = 240;
constexpr int height = 150;

/// What a picture is painted with, by its place in the palette.
enum Ink : Byte { ground, panel, strong, soft, accent, tint };
using Palette = std::array<Word, 6>;

/// Of windows by day and by night.
constexpr std::array<Palette, 6> palettes{{
    {0x20323B, 0x2B3D48, 0x8FA3AD, 0x5E727D, 0x7FB4C0, 0x3B5561},
    {0xF3EDE0, 0xFFFFFF, 0x9A9585, 0xCFC9BA, 0x4E6A8E, 0xDFE5EC},
    {0x2C2A35, 0x36323E, 0x9C93B0, 0x5F586B, 0xA99BD0, 0x463F52},
    {0xEFEDEA, 0xFFFFFF, 0x8B8078, 0xD9CFC8, 0xB4826B, 0xE6D2C9},
    {0x2A3530, 0x333F39, 0x8FA594, 0x57685D, 0x8FC09A, 0x42544A},
    {0xE9ECEF, 0xFFFFFF, 0x7D8790, 0xC6CDD4, 0x5E7FA3, 0xD5DFEA},
}};

/// A stream of small numbers, the same for the same beginning.
class Dice {
public:
    explicit Dice(std::int64_t number)
        : m_state(static_cast<Word>(number) * 0x9E3779B1U + 0x7F4A7C15U) {}

    int below(int end) {
        m_state ^= m_state << 13U;
        m_state ^= m_state >> 17U;
        m_state ^= m_state << 5U;
        return static_cast<int>(m_state % static_cast<Word>(end));
    }

private:
    Word m_state;
};

class Screen {
public:
    void box(int left, int top, int across, int down, Ink ink) {
        const int right = std::min(left + across, width);
        for (int row = std::max(0, top); row < std::min(top + down, height); ++row)
            for (int column = std::max(0, left); column < right; ++column)
                m_pixels[static_cast<std::size_t>(row) * width + static_cast<std::size_t>(column)] =
                    ink;
    }
    /// Lines of words.
    void lines(Dice& dice, int left, int top, int across, int bottom, Ink ink) {
        for (int row = top; row + 3 <= bottom; row += 9)
            box(left, row, across / 2 + dice.below(across / 2 + 1), 3, ink);
    }
    const std::vector<Byte>& pixels() const { return m_pixels; }

private:
    std::vector<Byte> m_pixels = std::vector<Byte>(std::size_t{width} * height, ground);
};

void code(Screen& screen, Dice& dice) {
    screen.box(10, 10, width - 20, height - 20, panel);
    screen.lines(dice, 18, 22, 26, height - 16, soft);
    for (int row = 22; row < height - 20; row += 9) {
        const int indent = 8 * dice.below(4);
        screen.box(62 + indent, row, 30 + dice.below(90), 3, dice.below(3) == 0 ? accent : strong);
    }
}

void page(Screen& screen, Dice& dice) {
    screen.box(46, 12, width - 92, height, panel);
    screen.box(60, 26, 40 + dice.below(50), 6, accent);
    screen.lines(dice, 60, 44, width - 120, height, soft);
}

void board(Screen& screen, Dice& dice) {
    screen.box(10, 10, width - 20, height - 20, panel);
    for (int column = 0; column < 4; ++column) {
        screen.box(20 + 52 * column, 18, 26, 3, soft);
        for (int card = 0; card < 2 + dice.below(3); ++card)
            screen.box(20 + 52 * column, 28 + 26 * card, 44, 20,
                       dice.below(3) == 0 ? accent : tint);
    }
}

void talk(Screen& screen, Dice& dice) {
    screen.box(10, 10, width - 20, height - 20, panel);
    screen.box(76, 10, 1, height - 20, soft);
    screen.lines(dice, 18, 22, 50, height - 16, soft);
    screen.box(88, 22, 70 + dice.below(40), 5, accent);
    screen.lines(dice, 88, 38, 120, height - 16, strong);
}

constexpr std::array crcTable = [] {
    std::array<Word, 256> table{};
    for (Word byte = 0; byte < table.size(); ++byte) {
        Word value = byte;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? 0xEDB88320U ^ value >> 1U : value >> 1U;
        table[byte] = value;
    }
    return table;
}();

void number(std::string& file, Word value) {
    for (const unsigned shift : {24U, 16U, 8U, 0U})
        file += static_cast<char>(value >> shift & 0xFFU);
}

void chunk(std::string& file, std::string_view type, std::string_view data) {
    number(file, static_cast<Word>(data.size()));
    const std::size_t start = file.size();
    file.append(type).append(data);
    Word crc = 0xFFFFFFFFU;
    for (std::size_t at = start; at < file.size(); ++at)
        crc = crcTable[(crc ^ static_cast<Byte>(file[at])) & 0xFFU] ^ crc >> 8U;
    number(file, ~crc);
}

/// As a stream that packs nothing.
std::string stored(std::string_view raw) {
    constexpr std::size_t mostInBlock = 65'535;
    std::string stream = "\x78\x01";
    for (std::size_t from = 0; from < raw.size(); from += mostInBlock) {
        const std::string_view block = raw.substr(from, mostInBlock);
        const auto size = static_cast<Word>(block.size());
        stream += static_cast<char>(from + block.size() == raw.size());
        for (const Word part : {size, size >> 8U, ~size, ~size >> 8U})
            stream += static_cast<char>(part & 0xFFU);
        stream += block;
    }
    Word low = 1;
    Word high = 0;
    for (const char byte : raw) {
        low = (low + static_cast<Byte>(byte)) % 65'521;
        high = (high + low) % 65'521;
    }
    number(stream, high << 16U | low);
    return stream;
}

std::string png(const Screen& screen, const Palette& palette) {
    std::string head;
    number(head, width);
    number(head, height);
    head.append("\x08\x03\x00\x00\x00", 5); // a byte for each pixel, from the palette
    std::string colours;
    for (const Word colour : palette)
        for (const unsigned shift : {16U, 8U, 0U})
            colours += static_cast<char>(colour >> shift & 0xFFU);
    std::string rows;
    for (int row = 0; row < height; ++row) {
        rows += '\0';
        const auto first = screen.pixels().begin() + std::ptrdiff_t{row} * width;
        rows.append(first, first + width);
    }
    std::string file("\x89PNG\r\n\x1a\n", 8);
    chunk(file, "IHDR", head);
    chunk(file, "PLTE", colours);
    chunk(file, "IDAT", stored(rows));
    chunk(file, "IEND", {});
    return file;
}

} // namespace

std::string SeededScreens::draw(std::int64_t number) {
    constexpr std::array kinds{code, page, board, talk};
    Dice dice(number);
    Screen screen;
    const auto kind = static_cast<std::size_t>(dice.below(static_cast<int>(kinds.size())));
    kinds[kind](screen, dice);
    return png(screen, palettes[static_cast<std::size_t>(dice.below(palettes.size()))]);
}

} // namespace wendlow
