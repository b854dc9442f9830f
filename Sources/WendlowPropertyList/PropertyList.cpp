#include "PropertyList.h"

#include <cstdint>
#include <memory>

#include <plist/plist.h>

namespace wendlow::PropertyList {

std::optional<std::string> string(std::string_view bytes, const std::string& key) {
    if (bytes.size() > sizeLimit)
        return std::nullopt;
    plist_t parsed = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &parsed);
    const std::unique_ptr<void, decltype(&plist_free)> root(parsed, &plist_free);
    if (plist_get_node_type(parsed) != PLIST_DICT)
        return std::nullopt;
    const plist_t value = plist_dict_get_item(parsed, key.c_str());
    if (plist_get_node_type(value) != PLIST_STRING)
        return std::nullopt;
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(value, &length);
    return std::string(text, length);
}

} // namespace wendlow::PropertyList
