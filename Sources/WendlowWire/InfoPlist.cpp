#include "InfoPlist.h"

#include "PropertyList.h"
#include "TextFile.h"

namespace wendlow::InfoPlist {

std::optional<std::string> string(const std::filesystem::path& path, const std::string& key) {
    const auto bytes = TextFile::read(path);
    return bytes ? PropertyList::string(*bytes, key) : std::nullopt;
}

} // namespace wendlow::InfoPlist
