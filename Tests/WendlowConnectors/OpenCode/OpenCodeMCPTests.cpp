#include "Drift.h"
#include "OpenCode/OpenCodeMCP.h"
#include "OpenCode/OpenCodePlugin.h"

#include "Found.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

const OpenCodeMCP mcp(OpenCodePaths::under("/home/me", "/A/Wendlow.app"));
const std::string binary = "/A/Wendlow.app/Contents/MacOS/wendlow-mcp";
const std::string command = R"("command":[")" + binary + R"("])";
const std::string entry = R"({"type":"local",)" + command + R"(,"enabled":true})";

/// A file whose `wendlow` entry this is.
std::string file(const std::string& wendlow) {
    return R"({"mcp":{"wendlow":)" + wendlow + "}}";
}

TEST(OpenCodeMCP, tellsWhoseAnEntryIsAndWhatIsWrongWithIt) {
    const std::string gone = "the file the command names is not on disk: " + binary;
    const std::string shape(Drift::otherShape);
    const std::string off(OpenCodeMCP::switchedOffText);
    const auto other = [](const std::string& word) {
        return "the command is not the one this build writes: " + word;
    };
    const auto drifted = [](const std::vector<std::string>& reasons) {
        return BlockFinding{BlockFinding::Drifted{reasons}};
    };
    const auto foreign = [](const std::string& reason) {
        return BlockFinding{BlockFinding::Foreign{{reason}}};
    };
    const auto hand = foreign("the Wendlow MCP entry here was written by hand and is not the one "
                              "this build writes");
    const auto carries = [&](const std::string& what) { return foreign("the entry " + what); };
    const auto runs = [](const std::string& word) { return R"({"command":[")" + word + R"("]})"; };
    const auto with = [&](const std::string& more) { return "{" + command + "," + more + "}"; };
    const std::string checkout = "/home/me/fenmoor/wendlow/";
    const struct {
        std::string entry;
        BlockFinding found;
        BlockFinding foundIfCreated; ///< by us
    } cases[] = {
        {entry, drifted({gone}), drifted({gone})},
        {"{}", drifted({shape}), drifted({shape})},
        {"[]", drifted({shape}), drifted({shape})},
        {"null", hand, drifted({shape})},
        {R"({"command":"x"})", hand, drifted({shape})},
        {R"({"command":[]})", hand, drifted({shape})},
        {R"({"command":[""]})", hand, drifted({shape})},
        {R"({"command":[7]})", hand, drifted({shape})},
        {R"({"enabled":false})", hand, drifted({shape})},
        {runs("npx"), hand, drifted({other("npx"), gone})},
        {runs("/usr/bin/wendlow-mcp"), drifted({other("/usr/bin/wendlow-mcp"), gone}),
         drifted({other("/usr/bin/wendlow-mcp"), gone})},
        {runs(checkout + ".build/x"),
         drifted({"the command points into a source checkout: " + checkout + ".build/x", gone}),
         drifted({"the command points into a source checkout: " + checkout + ".build/x", gone})},
        {runs(checkout + "x"), hand,
         drifted({"the command points into a source checkout: " + checkout + "x", gone})},
        {with(R"("enabled":false,"type":"local")"), drifted({gone, off}), drifted({gone, off})},
        {with(R"("enabled":true)"), drifted({gone, shape}), drifted({gone, shape})},
        {with(R"("x":1)"), carries("carries a key this build does not write: x"),
         drifted({gone, shape})},
        {with(R"("type":"local","b":1,"a":1)"),
         carries("carries keys this build does not write: a, b"), drifted({gone})},
        {with(R"("type":"remote")"), carries("states a type this build does not write"),
         drifted({gone, shape})},
        {with(R"("type":"local","enabled":"false")"),
         carries("states an enabled that is neither true nor false"), drifted({gone})},
        {R"({"type":"local","command":[")" + binary + R"(","-v"]})",
         carries("carries arguments this build does not write"), drifted({gone, shape})},
    };
    const std::set<Created> none;
    const std::set created{Created::openCodeMCPEntry};
    for (const auto& [text, found, foundIfCreated] : cases) {
        SCOPED_TRACE(text);
        const std::string bytes = file(text);
        EXPECT_EQ(testing::found(mcp, bytes, none), found);
        EXPECT_EQ(testing::found(mcp, bytes, created), foundIfCreated);
        // Whatever is foreign to a scan is refused by a verb, in nearly the same words.
        const auto document = OpenCodeMCP::read(bytes);
        const auto refusal = mcp.refusalReason(*document, {});
        const auto* const reasons = std::get_if<BlockFinding::Foreign>(&found.content);
        EXPECT_EQ(refusal.has_value(), reasons != nullptr);
        if (found == hand) {
            EXPECT_EQ(refusal, "the mcp.wendlow entry here was written by hand and is not one this "
                               "build wrote");
        } else if (refusal) {
            EXPECT_EQ("the entry" +
                          refusal->substr(std::string("the mcp.wendlow entry here").size()),
                      reasons->reasons.front());
        }
        EXPECT_EQ(mcp.refusalReason(*document, created), std::nullopt);
    }
    const BlockFinding absent{BlockFinding::Absent{}};
    EXPECT_EQ(testing::found(mcp, "{\"mcp\":{}} // {", none), absent);
    EXPECT_EQ(testing::found(mcp, "[]", none), absent);
    EXPECT_EQ(testing::found(mcp, R"({"mcp":[]})", none),
              foreign("the mcp value in this file is not an object, so no entry can be put in it"));
}

TEST(OpenCodeMCP, installsAndRemovesItsEntryAndKeepsComments) {
    const std::set<Created> none;
    const std::set object{Created::openCodeMCPObject};
    struct Case {
        std::string before, installed, removed;
        std::set<Created> created = {};
        std::size_t commentsReplaced = 0;
    };
    const std::string lines =
        "\"type\": \"local\",\n  \"command\": [\n    \"" + binary + "\"\n  ],\n  \"enabled\": true";
    const Case cases[] = {
        {"{}", file(entry), "{}", object},
        {"{ /* a */ }", R"({ /* a */ "mcp":{"wendlow":)" + entry + "}}", "{ /* a */ }", object},
        {"{// a\n\"b\":1// c\n}// d",
         "{// a\n\"b\":1,\n\"mcp\": {\n  \"wendlow\": " +
             std::string("{\n    \"type\": \"local\",\n    \"command\": [\n      \"") + binary +
             "\"\n    ],\n    \"enabled\": true\n  }\n}// c\n}// d",
         "{// a\n\"b\":1// c\n}// d", object},
        {R"({"mcp":{}})", file(entry), R"({"mcp":{}})"},
        // Ours, and right: the person's order, spacing and switch stand.
        {file(R"({ "enabled":false, "command":[ ")" + binary + R"(" ],"type":"local" })"), "",
         R"({"mcp":{}})"},
        // Members go in one by one, so that what stands between them stays.
        {file("{ // a\n  \"type\": \"local\", // b\n  \"command\": [\"/wendlow-mcp\" /* c */] // "
              "d\n}"),
         file("{ // a\n  \"type\": \"local\", // b\n  \"command\": [\n    \"" + binary +
              "\"\n  ],\n  \"enabled\": true // d\n}"),
         "{\"mcp\":{ // a\n // b\n // d\n}}",
         {},
         1},
        {file("{ // a\n}"), file("{ // a\n  " + lines + "\n}"), "{\"mcp\":{ // a\n}}"},
    };
    for (const auto& [before, after, without, created, commentsReplaced] : cases) {
        SCOPED_TRACE(before);
        const auto document = OpenCodeMCP::read(before);
        ASSERT_TRUE(document);
        const auto installed = mcp.installed(before, *document);
        ASSERT_TRUE(installed);
        EXPECT_EQ(installed->bytes.value_or(""), after);
        EXPECT_EQ(installed->created, created);
        EXPECT_EQ(installed->commentsReplaced, commentsReplaced);
        const std::string now = installed->bytes.value_or(before);
        const auto again = OpenCodeMCP::read(now);
        EXPECT_EQ(mcp.installed(now, *again)->bytes, std::nullopt);
        const auto removed = OpenCodeMCP::removed(now, *again, {created, {}, {}, {}});
        ASSERT_TRUE(removed);
        EXPECT_EQ(removed->bytes, without);
    }
}

TEST(OpenCodeMCP, givesAnAdoptedShellBack) {
    const ConnectorReceipt adopted{{}, {Adopted::openCodeMCPEntryShell}, {}, {}};
    const std::vector<std::string> leftover{
        "an empty wendlow entry remains here, which Wendlow did not create"};
    for (const std::string shell : {"{}", "{ /* here */ }", "{ // here\n}"}) {
        const std::string before = file(shell);
        const auto document = OpenCodeMCP::read(before);
        EXPECT_TRUE(OpenCodeMCP::isAdoptableShell(*document));
        const auto after = mcp.installed(before, *document)->bytes.value();
        const auto filled = OpenCodeMCP::read(after);
        EXPECT_FALSE(OpenCodeMCP::isAdoptableShell(*filled));
        const auto removed = OpenCodeMCP::removed(after, *filled, adopted);
        EXPECT_EQ(removed->bytes, before);
        EXPECT_EQ(removed->leftovers, leftover);
        // An entry that is ours goes whole, whatever was adopted at another time.
        const ConnectorReceipt created{{Created::openCodeMCPEntry}, adopted.adopted, {}, {}};
        EXPECT_FALSE(OpenCodeMCP::removed(after, *filled, created)->bytes->contains("wendlow"));
    }
    const auto list = file("[]");
    EXPECT_EQ(description(mcp.installed(list, *OpenCodeMCP::read(list)).error()),
              "mcp.wendlow is not an object");
}

TEST(OpenCodePlugin, isKnownByItsHeader) {
    const std::filesystem::path hook = "/A/\"é\"/wendlow-hook";
    const std::string source = OpenCodePlugin::source(hook);
    EXPECT_TRUE(source.contains("\nconst HOOK = \"/A/\\\"é\\\"/wendlow-hook\"\n"));
    const auto swap = [&](std::size_t at, const char* by) {
        return std::string(source).replace(at, 1, by);
    };
    const struct {
        std::string bytes;
        PluginOwnership whose;
        bool runs;
    } cases[] = {
        {source, PluginOwnership::current, true},
        {source + "\n", PluginOwnership::otherBuild, true},
        {swap(source.size() - 3, "x"), PluginOwnership::otherBuild, true},
        {OpenCodePlugin::source("/B/wendlow-hook"), PluginOwnership::otherBuild, false},
        {source.substr(0, source.find('\n')), PluginOwnership::otherBuild, false},
        {source.substr(0, source.find('\n') - 1), PluginOwnership::foreign, false},
        {swap(3, "w"), PluginOwnership::foreign, true},
        {" " + source, PluginOwnership::foreign, true},
        {source + "\xFF", PluginOwnership::foreign, true},
        {"", PluginOwnership::foreign, false},
    };
    for (const auto& [bytes, whose, runs] : cases) {
        EXPECT_EQ(OpenCodePlugin::ownership(bytes, hook), whose) << bytes.substr(0, 100);
        EXPECT_EQ(OpenCodePlugin::runs(bytes, hook), runs) << bytes.substr(0, 100);
    }
}

} // namespace
} // namespace wendlow
