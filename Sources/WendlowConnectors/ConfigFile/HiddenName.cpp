#include "ConfigFile/HiddenName.h"

#include <algorithm>
#include <charconv>

#include <fmt/format.h>
#include <unistd.h>

namespace wendlow::HiddenName {
namespace {

constexpr std::string_view mark = ".wendlow-";
constexpr std::string_view ending = ".tmp";
constexpr std::string_view uuidForm = "XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX";

/// A random UUID in upper-case text.
Disk::Result<std::string> uuid() {
    auto bits = Disk::random();
    if (!bits)
        return std::unexpected(bits.error());
    (*bits)[6] = static_cast<std::uint8_t>(((*bits)[6] & 0x0fU) | 0x40U); // version 4: random
    (*bits)[8] = static_cast<std::uint8_t>(((*bits)[8] & 0x3fU) | 0x80U); // the usual variant
    std::string text;
    for (std::size_t index = 0; index < bits->size(); ++index) {
        if (uuidForm[text.size()] == '-')
            text += '-';
        text += fmt::format("{:02X}", (*bits)[index]);
    }
    return text;
}

bool isUUID(std::string_view text) {
    return std::ranges::equal(text, uuidForm, [](char byte, char form) {
        return form == '-' ? byte == '-'
                           : (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'F');
    });
}

/// Takes "-<number>" off the front of `rest`.
template<class Number> std::optional<Number> takeNumber(std::string_view& rest) {
    Number number{};
    if (!rest.starts_with('-'))
        return std::nullopt;
    const char* const end = rest.data() + rest.size();
    const auto [stopped, error] = std::from_chars(rest.data() + 1, end, number);
    if (error != std::errc() || number < 0)
        return std::nullopt;
    rest = std::string_view(stopped, end);
    return number;
}

} // namespace

Disk::Result<Disk::Path> unique(const Disk::Path& file) {
    const auto random = uuid();
    if (!random)
        return std::unexpected(random.error());
    return file.parent_path() /
           fmt::format(".{}{}{}-{}{}", file.filename().string(), mark, *random, ::getpid(), ending);
}

Disk::Path numbered(const Disk::Path& hidden, ino_t number) {
    auto name = hidden.filename().string();
    name.resize(name.size() - ending.size());
    return hidden.parent_path() / fmt::format("{}-{}{}", name, number, ending);
}

std::optional<Parts> parts(std::string_view name, const Disk::Path& file) {
    const auto beginning = fmt::format(".{}{}", file.filename().string(), mark);
    if (!name.starts_with(beginning) || !name.ends_with(ending) ||
        name.size() < beginning.size() + uuidForm.size() + ending.size())
        return std::nullopt;
    name.remove_prefix(beginning.size());
    name.remove_suffix(ending.size());
    if (!isUUID(name.substr(0, uuidForm.size())))
        return std::nullopt;
    name.remove_prefix(uuidForm.size());
    const auto process = takeNumber<pid_t>(name);
    if (!process || *process == 0)
        return std::nullopt;
    Parts parts{.process = *process, .written = std::nullopt};
    if (!name.empty())
        parts.written = takeNumber<ino_t>(name);
    if (!name.empty())
        return std::nullopt;
    return parts;
}

} // namespace wendlow::HiddenName
