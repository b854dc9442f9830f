#include "FilePlace.h"

#include "ConfigFile/Disk.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <memory>

namespace wendlow {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool beginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

std::string wordsOf(const Observation& observation) {
    const auto offset = FilePlace::byteIn(observation.text);
    if (!offset)
        return {};
    const auto bytes = Disk::read(observation.subject);
    if (!bytes || !*bytes || *offset > (*bytes)->size())
        return {}; // it is another file by now
    const FilePlace place = FilePlace::of(**bytes, *offset);
    return fmt::format("line {}, column {}", place.line, place.column);
}

} // namespace

FilePlace FilePlace::of(std::string_view bytes, std::size_t offset) {
    FilePlace place;
    const std::string_view before = bytes.substr(0, offset);
    std::size_t begin = bytes.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    for (std::size_t at = begin; at < before.size(); ++at) {
        // Of "\r\n" the second ends the line.
        const bool ends = before[at] == '\n' ||
                          (before[at] == '\r' && (at + 1 >= bytes.size() || bytes[at + 1] != '\n'));
        if (!ends)
            continue;
        ++place.line;
        begin = at + 1;
    }
    place.column += static_cast<std::size_t>(
        std::ranges::count_if(before.substr(std::min(begin, before.size())), beginsCharacter));
    return place;
}

std::optional<std::size_t> FilePlace::byteIn(std::string_view sentence) {
    constexpr std::string_view opening = "(at byte ";
    const std::size_t at = sentence.rfind(opening);
    if (at == std::string_view::npos)
        return std::nullopt;
    const std::string_view rest = sentence.substr(at + opening.size());
    std::size_t offset = 0;
    const char* const end = std::to_address(rest.end());
    const auto read = std::from_chars(std::to_address(rest.begin()), end, offset);
    if (read.ec != std::errc() || read.ptr == end || *read.ptr != ')')
        return std::nullopt;
    return offset;
}

std::vector<std::string> FilePlace::words(const Observations& observations) {
    std::vector<std::string> list;
    list.reserve(observations.size());
    for (const Observation& observation : observations)
        list.push_back(wordsOf(observation));
    return list;
}

} // namespace wendlow
