#include "ConfigFile/TOMLDocument.h"

#include <algorithm>

namespace wendlow {

bool TOMLPath::leadsTo(const TOMLName& name) const {
    return size() <= name.size() && std::equal(begin(), end(), name.begin());
}

bool TOMLPath::extends(const TOMLName& name) const {
    return size() > name.size() && std::equal(name.begin(), name.end(), begin());
}

bool TOMLPath::operator==(const TOMLName& name) const {
    return std::ranges::equal(segments, name);
}

bool TOMLPath::operator==(const TOMLPath& other) const {
    return std::ranges::equal(segments, other.segments);
}

const TOMLTable* TOMLDocument::table(const TOMLName& name) const {
    const auto found = std::ranges::find_if(
        m_tables, [&](const TOMLTable& candidate) { return candidate.name == name; });
    return found == m_tables.end() ? nullptr : &*found;
}

} // namespace wendlow
