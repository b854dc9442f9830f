#include "MeetingWords.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <sodium.h>

#include "LocalTime.h"
#include "MeetingRoom.h"

namespace wendlow::MeetingWords {
namespace {

constexpr std::string_view separator = " · ";

/// On one line, and without what separates the parts of a list's line: whoever reads the list
/// splits there.
std::string listable(std::string text) {
    std::ranges::replace(text, '\n', ' ');
    for (auto at = text.find(separator); at != std::string::npos; at = text.find(separator, at))
        text.replace(at, separator.size(), " - ");
    return text;
}

std::string speakersPart(std::span<const TranscriptLineRow> lines) {
    std::vector<std::string> names = speakers(lines);
    if (names.empty())
        return lines.empty() ? "no named speakers" : "1 unnamed guest";
    // A comma would make two speakers of one.
    for (std::string& name : names) {
        name = listable(name);
        std::ranges::replace(name, ',', ' ');
    }
    return fmt::format("{}", fmt::join(names, ", "));
}

} // namespace

std::vector<std::string> speakers(std::span<const TranscriptLineRow> lines) {
    std::vector<std::string> names;
    for (const TranscriptLineRow& line : lines)
        if (line.speaker != guest && std::ranges::find(names, line.speaker) == names.end())
            names.push_back(line.speaker);
    return names;
}

std::string listed(const MeetingRecord& meeting, std::span<const TranscriptLineRow> lines) {
    std::vector<std::string> parts = {meeting.id,
                                      fmt::format("{} {}–{}", LocalTime::day(meeting.start),
                                                  LocalTime::clock(meeting.start),
                                                  LocalTime::clock(meeting.end)),
                                      LocalTime::length(meeting.end - meeting.start)};
    if (meeting.title)
        parts.push_back(fmt::format("\"{}\"", listable(*meeting.title)));
    parts.push_back(speakersPart(lines));
    parts.push_back(fmt::format("{} lines", lines.size()));
    return fmt::format("- {}", fmt::join(parts, separator));
}

std::string witness(const TranscriptLineRow& line) {
    const std::string said = fmt::format("{}\n{}\n{}", line.speaker, line.at, line.text);
    std::array<unsigned char, crypto_generichash_BYTES_MIN> digest{};
    crypto_generichash(digest.data(), digest.size(),
                       // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes
                       reinterpret_cast<const unsigned char*>(said.data()), said.size(), nullptr,
                       0);
    return fmt::format("{:02x}", fmt::join(digest, ""));
}

} // namespace wendlow::MeetingWords
