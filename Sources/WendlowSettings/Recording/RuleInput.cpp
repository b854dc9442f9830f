#include "Recording/RuleInput.h"

#include "PlainText.h"

namespace wendlow::RuleInput {

std::string domain(std::string_view text) {
    constexpr std::string_view scheme = "://";
    constexpr std::string_view world = "www.";
    const std::string address = PlainText::lowerCased(PlainText::trimmed(text));
    std::string_view host = address;
    if (const auto end = host.find(scheme); end != std::string_view::npos)
        host.remove_prefix(end + scheme.size());
    if (host.starts_with(world))
        host.remove_prefix(world.size());
    return std::string(host.substr(0, host.find('/')));
}

RuleKind wordKind(std::string_view text) {
    return PlainText::trimmed(text).contains(' ') ? RuleKind::phrase : RuleKind::word;
}

} // namespace wendlow::RuleInput
