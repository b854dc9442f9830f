#include "ClaudeCodeTestSupport.h"
#include "InstallRemoveProperty.h"

#include <random>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

/// Random settings files: the names that matter are likely, white space and layout are anybody's.
class Files {
public:
    std::string next() {
        m_newline = pick({"", "\n", "\r\n", "\n\n"});
        return space() + settings() + space();
    }

private:
    std::size_t below(std::size_t limit) { return m_random() % limit; }
    std::string pick(std::vector<std::string> choices) { return choices[below(choices.size())]; }
    std::string space() { return pick({"", "", " ", "\t", m_newline, m_newline + "  "}); }

    std::string entry() {
        return testing::filled(pick({"@theirs", "@rules", "@index", "@recall", "@pretool", "@old",
                                     "@slots", "5", "{}", R"({"command":"é \"]}"})"}));
    }
    std::string list(const std::function<std::string()>& element) {
        std::string result = "[" + space();
        for (std::size_t left = below(4); left > 0; --left)
            result += element() + space() + (left > 1 ? "," + space() : "");
        return result + "]";
    }
    std::string object(std::vector<std::pair<std::string, std::function<std::string()>>> members) {
        std::ranges::shuffle(members, m_random);
        members.resize(below(members.size() + 1));
        std::string result = "{" + space();
        for (std::size_t index = 0; index < members.size(); ++index)
            result += (index > 0 ? "," + space() : "") + '"' + members[index].first + '"' +
                      space() + ":" + space() + members[index].second() + space();
        return result + "}";
    }
    std::string group() {
        return object({{"matcher", [&] { return pick({R"("")", R"("mcp__wendlow__.*")"}); }},
                       {"hooks", [&] { return list([&] { return entry(); }); }},
                       {"hooks2", [&] { return list([&] { return entry(); }); }}});
    }
    std::string settings() {
        const auto groups = [&] { return list([&] { return below(9) ? group() : pick({"7"}); }); };
        const auto hooks = [&] {
            return object({{"UserPromptSubmit", groups}, {"PreToolUse", groups}, {"Stop", groups}});
        };
        const auto server = [&] { return pick({"{}", "null", R"({"command":"x"})"}); };
        const auto servers = [&] { return object({{"wendlow", server}, {"other", server}}); };
        return object({{"hooks", hooks},
                       {"mcpServers", servers},
                       {"a", groups},
                       {"n", [&] { return pick({"1.50", "true", R"("\/")"}); }}});
    }

    std::mt19937 m_random{20261121};
    std::string m_newline;
};

TEST(InstallRemove, givesBackEveryFileThatHeldNothingOfOurs) {
    Files files;
    for (int count = 0; count < 5000; ++count) {
        const std::string file = files.next();
        const auto broken = testing::brokenRoundTrip(file);
        ASSERT_EQ(broken, std::nullopt) << file;
    }
}

} // namespace
} // namespace wendlow
