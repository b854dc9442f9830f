#include "Cursor/CursorHooksVersion.h"

#include "Say.h"

namespace wendlow {

CursorHooksVersion CursorHooksVersion::of(const JSONNode& root, std::string_view bytes) {
    const auto version = root.member("version");
    if (!version)
        return {Absent{}};
    const std::string_view text = bytes.substr(version->start(), version->range().size());
    if (text == "1")
        return {One{}};
    return {Foreign{std::string(text)}};
}

const std::string* CursorHooksVersion::foreign() const {
    const auto* stated = std::get_if<Foreign>(&content);
    return stated == nullptr ? nullptr : &stated->text;
}

std::string CursorHookError::description() const {
    return say("this file states hooks configuration version {}, which this build has not read",
               version);
}

} // namespace wendlow
