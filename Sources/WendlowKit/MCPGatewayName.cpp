#include "MCPGatewayName.h"

#include "XPCEndpoint.h"

namespace wendlow::MCPGatewayName {

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\n\r\v\f";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

} // namespace

std::string resolve(const std::map<std::string, std::string, std::less<>>& environment) {
    if (const auto entry = environment.find(overrideKey); entry != environment.end()) {
        const std::string_view name = trimmed(entry->second);
        if (name.starts_with(testPrefix) && name.size() > testPrefix.size())
            return std::string(name);
    }
    return std::string(XPCEndpoint::machServiceName);
}

} // namespace wendlow::MCPGatewayName
