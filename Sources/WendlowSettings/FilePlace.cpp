#include "FilePlace.h"

#include "ConfigFile/Disk.h"
#include "Say.h"

#include <algorithm>

namespace wendlow {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool beginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

std::string wordsOf(const Observation& observation) {
    if (!observation.byte)
        return {};
    const auto bytes = Disk::read(observation.subject);
    if (!bytes || !*bytes || *observation.byte > (*bytes)->size())
        return {}; // it is another file by now
    const FilePlace place = FilePlace::of(**bytes, *observation.byte);
    return say("line {}, column {}", place.line, place.column);
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

std::vector<std::string> FilePlace::words(const Observations& observations) {
    std::vector<std::string> list;
    list.reserve(observations.size());
    for (const Observation& observation : observations)
        list.push_back(wordsOf(observation));
    return list;
}

} // namespace wendlow
