#pragma once

#include "ClaudeCode/ClaudeCodePaths.h"
#include "Files.h"

#include <string>
#include <string_view>

namespace wendlow::testing {

/// `text` with "@rules", "@index", "@recall" and "@pretool" made into the entries of the bundle
/// "/A/Wendlow.app" on one line, and "@old" into one of another copy of the application.
inline std::string filled(std::string text) {
    const auto entry = [](const std::string& folder, const std::string& slot) {
        return R"({"type":"command","command":")" + folder +
               "/Wendlow.app/Contents/MacOS/wendlow-hook --harness claude-code --slot " + slot +
               R"(","timeout":3})";
    };
    return replaced(std::move(text), {{"@slots", "@rules,@index,@recall"},
                                      {"@rules", entry("/A", "rules")},
                                      {"@index", entry("/A", "index")},
                                      {"@recall", entry("/A", "recall")},
                                      {"@pretool", entry("/A", "pretool")},
                                      {"@old", entry("/Old", "rules")},
                                      {"@theirs", R"({"type":"command","command":"lint"})"}});
}

inline ClaudeCodePaths paths() {
    return ClaudeCodePaths::under("/home/me", "/A/Wendlow.app");
}

} // namespace wendlow::testing
