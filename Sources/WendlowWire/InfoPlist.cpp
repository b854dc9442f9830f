#include "InfoPlist.h"

#include <cstdlib>
#include <memory>

#include <plist/plist.h>

#include "TextFile.h"

namespace wendlow::InfoPlist {

namespace {

using Node = std::unique_ptr<void, decltype(&plist_free)>;

} // namespace

std::optional<std::string> string(const std::filesystem::path& path, const std::string& key) {
    const auto bytes = TextFile::read(path);
    if (!bytes)
        return std::nullopt;
    plist_t parsed = nullptr;
    plist_from_memory(bytes->data(), static_cast<std::uint32_t>(bytes->size()), &parsed);
    const Node root(parsed, &plist_free);
    if (plist_get_node_type(parsed) != PLIST_DICT)
        return std::nullopt;
    const plist_t value = plist_dict_get_item(parsed, key.c_str());
    if (plist_get_node_type(value) != PLIST_STRING)
        return std::nullopt;
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(value, &length);
    return std::string(text, length);
}

} // namespace wendlow::InfoPlist
