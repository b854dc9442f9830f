#pragma once

#include "ClaudeCode/ClaudeCodePaths.h"

#include <string>
#include <string_view>

namespace wendlow::testing {

/// `text` with "@rules", "@index", "@recall" and "@pretool" made into the entries of the bundle
/// "/A/Wendlow.app" on one line, and "@old" into one of another copy of the application.
inline std::string filled(std::string text) {
    const auto replace = [&](const std::string& mark, const std::string& by) {
        for (std::size_t at = text.find(mark); at != std::string::npos;
             at = text.find(mark, at + by.size()))
            text.replace(at, mark.size(), by);
    };
    const auto entry = [](const std::string& folder, const std::string& slot) {
        return R"({"type":"command","command":")" + folder +
               "/Wendlow.app/Contents/MacOS/wendlow-hook --harness claude-code --slot " + slot +
               R"(","timeout":3})";
    };
    replace("@slots", "@rules,@index,@recall");
    for (const char* slot : {"rules", "index", "recall", "pretool"})
        replace(std::string("@") + slot, entry("/A", slot));
    replace("@old", entry("/Old", "rules"));
    replace("@theirs", R"({"type":"command","command":"lint"})");
    return text;
}

inline ClaudeCodePaths paths() {
    return ClaudeCodePaths::under("/home/me", "/A/Wendlow.app");
}

} // namespace wendlow::testing
