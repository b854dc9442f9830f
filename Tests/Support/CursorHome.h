#pragma once

#include "Cursor/CursorConnector.h"
#include "Files.h"
#include "TemporaryHome.h"

#include <string>

namespace wendlow::testing {

/// `text` with "@prompt" and "@pretool" made into the entries of `paths` on one line, "@old" into
/// one of another copy of the application, "@theirs" into a person's, and "@hook" into the path of
/// the program that entries run.
inline std::string filledForCursor(const CursorPaths& paths, std::string text) {
    return replaced(
        std::move(text),
        {{"@prompt", R"({"command":"@hook --harness cursor"})"},
         {"@pretool", R"({"command":"@hook --harness cursor --slot pretool","matcher":)"
                      R"("^(Task|MCP:(grab|memory_add|meeting_get))$","timeout":3})"},
         {"@old", R"({"command":"/Old/Wendlow.app/Contents/MacOS/wendlow-hook --harness cursor"})"},
         {"@theirs", R"({"command":"lint"})"},
         {"@hook", paths.hookBinary.string()}});
}

/// A home with an application and Cursor in it, and a connector for both.
class CursorHome {
public:
    CursorHome() {
        put(paths().hookBinary, "program", 0755);
        put(paths().mcpBinary, "program");
        std::filesystem::create_directory(paths().configDirectory);
    }

    std::filesystem::path path(const std::string& name) const { return m_home / name; }
    CursorPaths paths() const {
        return CursorPaths::under(m_home.path(), m_home / "Wendlow.app", m_home / "Applications");
    }
    CursorConnector connector() const { return CursorConnector(paths()); }
    void fillVersion(const std::string& propertyList) const {
        put(paths().cursorApp / "Contents/Info.plist", propertyList);
    }

private:
    TemporaryHome m_home;
};

/// A property list in XML that says this version.
inline std::string versionList(const std::string& version) {
    return "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>CFBundleShortVersionString"
           "</key><string>" +
           version + "</string></dict></plist>";
}

} // namespace wendlow::testing
