#include "Arguments.h"

#include "Say.h"

#include <algorithm>
#include <array>
#include <ranges>
#include <utility>

#include <fmt/ranges.h>

namespace wendlow::connect {

namespace {

using Path = std::filesystem::path;
using Outcome = std::expected<void, std::string>;

constexpr std::array<std::pair<std::string_view, Verb>, 8> verbs{{
    {"scan", Verb::scan},
    {"install", Verb::install},
    {"remove", Verb::remove},
    {"projects", Verb::projects},
    {"memory", Verb::memory},
    {"stale", Verb::stale},
    {"converge", Verb::converge},
    {"doctor", Verb::doctor},
}};

std::string names() {
    return fmt::format("{}", fmt::join(verbs | std::views::keys, ", "));
}

Path absolute(std::string_view text) {
    std::error_code failure;
    const Path path(text);
    Path result = std::filesystem::absolute(path, failure);
    // Only "." goes: where a link is on the way, dropping ".." would lead elsewhere.
    if (!failure && std::ranges::find(result, Path("..")) == result.end())
        result = result.lexically_normal();
    return failure ? path : result;
}

/// Takes the words in turn.
class Parser {
public:
    explicit Parser(std::span<const std::string_view> words) : m_words(words) {}

    std::expected<Arguments, std::string> parse() {
        while (m_next < m_words.size())
            if (auto taken = take(m_words[m_next++]); !taken)
                return std::unexpected(taken.error());
        if (m_helpWanted)
            return Arguments{};
        if (!m_verb)
            return std::unexpected(say("no verb was given; the verbs are {}", names()));
        if (m_forConverge && *m_verb != Verb::converge)
            return std::unexpected(say("{} goes with converge alone", *m_forConverge));
        m_arguments.verb = *m_verb;
        return std::move(m_arguments);
    }

private:
    Outcome take(std::string_view word) {
        if (word == "--json") {
            m_arguments.json = true;
            return {};
        }
        if (word == "--help") {
            m_helpWanted = true;
            return {};
        }
        if (word == "--home")
            return takePath(word, m_arguments.home);
        if (word == "--bundle")
            return takePath(word, m_arguments.bundle);
        if (word == "--applications")
            return takePath(word, m_arguments.applications);
        if (word == "--profile" || word == "--claude-running")
            return takeForConverge(word);
        if (word.starts_with('-'))
            return std::unexpected(say("there is no option {}", word));
        return takePlain(word);
    }

    std::expected<std::string_view, std::string> value(std::string_view option) {
        if (m_next == m_words.size() || m_words[m_next].empty() ||
            m_words[m_next].starts_with("--"))
            return std::unexpected(say("{} needs a value", option));
        return m_words[m_next++];
    }

    Outcome takePath(std::string_view option, std::optional<Path>& path) {
        const auto text = value(option);
        if (!text)
            return std::unexpected(text.error());
        path = absolute(*text);
        return {};
    }

    Outcome takeForConverge(std::string_view option) {
        m_forConverge = option;
        const auto text = value(option);
        if (!text)
            return std::unexpected(text.error());
        if (option == "--claude-running" && (*text == "yes" || *text == "no")) {
            m_arguments.isClaudeRunning = *text == "yes";
            return {};
        }
        const auto named = [&](Connectors::Profile profile) {
            return Connectors::text(profile) == *text;
        };
        const auto* const profile = std::ranges::find_if(Connectors::profiles, named);
        if (option != "--profile" || profile == Connectors::profiles.end())
            return std::unexpected(say("{} cannot be {}", option, *text));
        m_arguments.profile = *profile;
        return {};
    }

    Outcome takePlain(std::string_view word) {
        if (m_verb) {
            m_arguments.tools.emplace(word);
            return {};
        }
        const auto* const known =
            std::ranges::find(verbs, word, &std::pair<std::string_view, Verb>::first);
        if (known == verbs.end())
            return std::unexpected(say("there is no verb {}; the verbs are {}", word, names()));
        m_verb = known->second;
        return {};
    }

    std::span<const std::string_view> m_words;
    std::size_t m_next = 0;
    Arguments m_arguments;
    std::optional<Verb> m_verb;
    std::optional<std::string_view> m_forConverge;
    bool m_helpWanted = false;
};

} // namespace

std::string usage() {
    return say("usage: wendlow-connect [--home DIR] [--bundle DIR] [--applications DIR] VERB "
               "[TOOL]... [--json]") +
           "\n";
}

std::string help() {
    return "\n" + say(R"(Connects AI tools to Wendlow, and takes the connection out again.

  scan       look at each tool's files and change nothing
  install    put Wendlow's entries in
  remove     take them out
  projects   the projects that a tool has worked in
  memory     the memory files that a tool keeps
  stale      whether install would repair wiring of this very installation
  converge   install where that is so, and leave everything else alone; without
             TOOL, also clear away what earlier versions put into Claude's
             desktop app
  doctor     what a maintainer would ask: versions, programs, the tools and
             their files, and whether the gateway answers; no contents of
             files, and the home folder as "~"

  TOOL                 a tool's id; all of them if left out
  --home DIR           the home folder; the user's own if left out
  --bundle DIR         the application; the one that holds this program if left out
  --applications DIR   the Applications folder; /Applications if left out
  --profile dev|production
                       for converge: whose entries in Claude's desktop app are
                       cleared away; those of production if left out
  --claude-running yes|no
                       for converge: whether that app is running, which rewrites
                       its file when it quits; looked for if left out
  --json               JSON in place of lines: an array, of doctor an object

Exit status: 0; 1 when a verb was refused; 2 for wrong usage.)") +
           "\n";
}

std::expected<Arguments, std::string> parse(std::span<const std::string_view> words) {
    return Parser(words).parse();
}

} // namespace wendlow::connect
