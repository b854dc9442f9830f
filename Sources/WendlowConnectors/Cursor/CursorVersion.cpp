#include "Cursor/CursorVersion.h"

#include "ConfigFile/Disk.h"
#include "ConfigFile/JSONBytes.h"
#include "PropertyList.h"

#include <string_view>

namespace wendlow::CursorVersion {

std::optional<std::string> read(const std::filesystem::path& app) {
    const auto bytes = Disk::read(app / "Contents/Info.plist");
    if (!bytes || !*bytes)
        return std::nullopt;
    const auto text = PropertyList::string(**bytes, "CFBundleShortVersionString");
    // In a receipt, bytes that are not UTF-8 would take the whole record with them.
    if (!text || !JSONBytes::isUTF8(*text))
        return std::nullopt;
    constexpr std::string_view blanks = " \t\n\v\f\r";
    const std::size_t first = text->find_first_not_of(blanks);
    if (first == std::string::npos)
        return std::nullopt;
    return text->substr(first, text->find_last_not_of(blanks) + 1 - first);
}

} // namespace wendlow::CursorVersion
