#include "Support/GeneratedClaudeFile.h"

#include <array>
#include <fmt/format.h>
#include <iterator>
#include <random>
#include <string_view>

namespace wendlow::benchmarks {

namespace {

// As they stand in the file: escapes are JSON's. The engine is the same everywhere; the standard's
// distributions are not, so that none is used.
constexpr std::array<std::string_view, 40> words = {
    "the",    "fix",      "test",   "in",     "please",     "add",      "a",         "button",
    "to",     "refactor", "module", "error",  "when",       "parsing",  "it",        "should",
    "return", "instead",  "of",     "and",    "run",        "again",    "with",      "verbose",
    "output", "why",      "does",   "this",   "connection", "time out", "after",     "restart",
    "look",   "at",       "commit", "branch", "rename",     "function", "interface", "update"};
constexpr std::array<std::string_view, 8> nonASCII = {
    "für", "prüfen", "déjà vu", "naïve", "数据库连接失败", "ошибка при запуске", "— so", "🚀"};
constexpr std::array<std::string_view, 5> escaped = {
    R"(\"quoted\")", R"(C:\\Users\\me\\src)", R"(first\nsecond)", R"(\tindented)", R"(\\d+)"};
constexpr std::array<std::string_view, 8> codeLines = {
    R"(    if (configuration.isEnabled(\"feature\")) {\n)",
    R"(        const result = await client.request({ method: 'GET', path });\n)",
    R"(\t\treturn fmt.Errorf(\"reading %s: %w\", path, err)\n)",
    R"(2026-03-14T09:26:53.589Z INFO  worker[12] accepted connection from 10.0.3.17:52114\n)",
    R"(    }\n)",
    R"(\n)",
    R"(The quick brown fox jumps over the lazy dog while the daemon rebuilds its index.\n)",
    R"(// Prüft, ob die Verbindung noch steht — sonst wird neu verbunden.\n)"};

class Generator {
public:
    Generator(ClaudeFileKind kind, std::size_t size) : m_kind(kind), m_size(size) {
        m_out.reserve(size + 1024UL * 1024);
    }

    std::string file() {
        m_out += R"({
  "numStartups": 1843,
  "installMethod": "unknown",
  "autoUpdates": true,
  "tipsHistory": {
    "shift-enter": 1840,
    "memory-command": 1799
  },
  "userID": "5f2b1c9e7d6a4f3b8c0e1d2a3b4c5d6e7f8091a2b3c4d5e6f708192a3b4c5d6e",
  "projects": {)";
        for (int project = 0; m_out.size() < m_size; ++project) {
            addProject(project);
        }
        m_out += R"(
  },
  "mcpServers": {
    "filesystem": {
      "command": "npx",
      "args": [
        "-y",
        "@example/server-filesystem"
      ],
      "env": {}
    }
  }
})";
        return std::move(m_out);
    }

private:
    template<typename... Arguments>
    void add(fmt::format_string<Arguments...> format, Arguments&&... arguments) {
        fmt::format_to(std::back_inserter(m_out), format, std::forward<Arguments>(arguments)...);
    }
    std::size_t below(std::size_t bound) { return m_random() % bound; }
    template<std::size_t size>
    std::string_view oneOf(const std::array<std::string_view, size>& texts) {
        return texts[below(size)];
    }

    void addProject(int number) {
        add("{}\n    \"/home/someone/projects/{}-{}\": {{\n", number > 0 ? "," : "", oneOf(words),
            number);
        m_out += "      \"allowedTools\": [],\n      \"history\": [";
        const bool pastes = m_kind == ClaudeFileKind::longPastes;
        const auto entries = pastes ? 20 : 100 + below(200);
        for (std::size_t entry = 0; entry < entries && m_out.size() < m_size; ++entry) {
            m_out += entry > 0 ? ",\n        {\n" : "\n        {\n";
            m_out += "          \"display\": \"";
            addSentence();
            m_out += "\",\n          \"pastedContents\": {";
            if (pastes) {
                addPaste();
            }
            m_out += "}\n        }";
        }
        add("\n      ],\n      \"mcpServers\": {{}},\n      \"hasTrustDialogAccepted\": true,\n"
            "      \"projectOnboardingSeenCount\": {},\n      \"lastCost\": {}.{:04},\n"
            "      \"lastSessionId\": \"{:016x}-{:016x}\"\n    }}",
            below(5), below(30), below(10000), m_random(), m_random());
    }

    /// One to a dozen words; every second text has escapes, every third something beyond ASCII.
    void addSentence() {
        const auto count = 1 + below(12);
        for (std::size_t word = 0; word < count; ++word) {
            m_out += word > 0 ? " " : "";
            m_out += oneOf(words);
        }
        if (below(2) == 0) {
            add(" {} {}", oneOf(escaped), oneOf(escaped));
        }
        if (below(3) == 0) {
            add(" {} {}", oneOf(nonASCII), oneOf(nonASCII));
        }
    }

    void addPaste() {
        m_out += "\n            \"1\": {\n              \"id\": 1,\n"
                 "              \"type\": \"text\",\n              \"content\": \"";
        const auto end = m_out.size() + 2000 + below(60000);
        while (m_out.size() < end) {
            m_out += oneOf(codeLines);
        }
        m_out += "\"\n            }\n          ";
    }

    ClaudeFileKind m_kind;
    std::size_t m_size;
    std::string m_out;
    std::mt19937_64 m_random;
};

} // namespace

std::string generatedClaudeFile(ClaudeFileKind kind, std::size_t size) {
    return Generator(kind, size).file();
}

} // namespace wendlow::benchmarks
