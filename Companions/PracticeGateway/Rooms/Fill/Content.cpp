#include "Fill/Content.h"

#include <array>
#include <cmath>

#include "Fill/Vocabulary.h"

namespace wendlow {

Content::Content(std::string_view stream) {
    // FNV-1a: a standard library's hash may differ from the next one's.
    m_state = 0xcbf29ce484222325U;
    for (const char letter : stream)
        m_state = (m_state ^ static_cast<unsigned char>(letter)) * 0x100000001b3U;
    m_projectName = projects().front().name;
}

std::uint64_t Content::below(std::uint64_t end) {
    // SplitMix64.
    m_state += 0x9e3779b97f4a7c15U;
    std::uint64_t mixed = m_state;
    mixed = (mixed ^ (mixed >> 30U)) * 0xbf58476d1ce4e5b9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94d049bb133111ebU;
    return (mixed ^ (mixed >> 31U)) % end;
}

const Project& Content::project() {
    // The smaller of two draws: the first projects are those that most work goes into.
    const auto place = std::min(below(projects().size()), below(projects().size()));
    m_projectName = projects()[place].name;
    return projects()[place];
}

std::string_view Content::person() {
    return pick(people());
}

std::string_view Content::drawn(std::string_view slot) {
    if (slot == "person")
        return person();
    if (slot == "project")
        return m_projectName;
    if (slot == "count")
        return m_number = std::to_string(2 + below(60));
    return pick(Vocabulary::words(slot));
}

std::string Content::filled(std::string_view pattern) {
    std::string text;
    while (!pattern.empty()) {
        const auto open = pattern.find('{');
        text += pattern.substr(0, open);
        if (open == std::string_view::npos)
            break;
        const auto close = pattern.find('}', open);
        text += drawn(pattern.substr(open + 1, close - open - 1));
        pattern.remove_prefix(close + 1);
    }
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z')
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

std::string Content::prose(std::string_view projectName, std::uint64_t sentences) {
    m_projectName = projectName;
    std::string text;
    for (std::uint64_t count = 0; count < sentences; ++count) {
        text += text.empty() ? "" : " ";
        text += filled(pick(Vocabulary::sentences()));
    }
    return text;
}

double Content::before(double now, std::uint64_t days) {
    constexpr double day = 86400;
    constexpr double hour = 3600;
    constexpr std::uint64_t workingDay = 36'000; // seconds
    constexpr std::uint64_t afternoon = 21'600;
    constexpr std::uint64_t million = 1'000'000;
    const double share = static_cast<double>(below(million)) / static_cast<double>(million);
    const auto ago = std::floor(share * share * static_cast<double>(days));
    const double midnight = std::floor(now / day) * day - ago * day;
    const double at = midnight + 8 * hour + static_cast<double>(below(workingDay));
    // Of today only what has been.
    return at < now ? at : now - static_cast<double>(1 + below(afternoon));
}

std::span<const Project> Content::projects() {
    return Vocabulary::projects();
}

std::span<const std::string_view> Content::people() {
    return Vocabulary::words("people");
}

} // namespace wendlow
