#include "Floor/EditorDetails.h"
#include "Floor/RowText.h"
#include "Floor/RulesScope.h"
#include "Floor/TextMatch.h"
#include "Support/ScriptedStore.h"

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Segments = std::vector<MatchSegment>;

TEST(TextMatch, marksWordsWhateverTheirCaseAndAccents) {
    const std::tuple<const char*, const char*, Segments> cases[] = {
        {"", "cafe", {}},
        {"no match", "cafe", {{"no match"}}},
        {"a b", "a", {{"a b"}}},
        {"Un CAFÉ noir", "cafe", {{"Un "}, {"CAFÉ", true}, {" noir"}}},
        {"cafe\u0301!", "cafe", {{"cafe\u0301", true}, {"!"}}},
        {"abc", "ab bc", {{"abc", true}}},
        {"abcd", "ab cd", {{"abcd", true}}},
        {"ab-abc", "ab abc", {{"ab", true}, {"-"}, {"abc", true}}},
        {"👩‍👩‍👧 build", "build", {{"👩‍👩‍👧 "}, {"build", true}}},
        {"שלום build", "build", {{"שלום "}, {"build", true}}},
    };
    for (const auto& [text, term, segments] : cases)
        EXPECT_EQ(TextMatch::segments(text, term), segments) << text << "|" << term;
}

TEST(TextMatch, givesALineAroundTheFirstWordThatStandsThere) {
    const std::string text = "one two\nthree four five";
    const std::tuple<const char*, int, std::optional<std::string>> cases[] = {
        {"THREE", 4, "…two three fou…"},
        {"five one", 2, "…r five"},
        {"zz two", 99, "one two three four five"},
        {"one", 0, "one…"},
        {"x", 9, {}},
        {"é", 9, {}},
        {"nowhere", 9, {}},
    };
    for (const auto& [term, radius, line] : cases)
        EXPECT_EQ(TextMatch::passage(term, text, radius), line) << term;
    EXPECT_EQ(TextMatch::passage("one", "", 9), std::nullopt);
    EXPECT_EQ(TextMatch::passage("mid", "👩‍👩‍👧👩‍👩‍👧mid", 1),
              "…👩‍👩‍👧mid");
}

TEST(RowText, ShowsWhatAnybodyMayHaveWritten) {
    using Case = std::pair<std::string, std::string>;
    for (const auto& [text, line] :
         {Case{"two\nlines\ttab\r\n", "two lines tab  "}, Case{"\xff", "\xef\xbf\xbd"},
          Case{"ערב טוב", "ערב טוב"}, Case{"👩‍👩‍👧 <b>", "👩‍👩‍👧 <b>"},
          Case{"a\xe2\x80\xa9z", "a z"}, Case{std::string("nul\0z", 5), "nul z"}})
        EXPECT_EQ(RowText::line(text).toStdString(), line);
    EXPECT_EQ(RowText::markedLine("Ärger & <i>", "arger"), "<b>Ärger</b> &amp; &lt;i&gt;");
    EXPECT_EQ(RowText::markedText("  a\n\tb", ""), "&nbsp;&nbsp;a<br>&nbsp;&nbsp;&nbsp;&nbsp;b");
    std::string emoji;
    for (int at = 0; at < 10000; ++at)
        emoji += "👍";
    const QString cut = RowText::line(emoji);
    EXPECT_EQ(cut.size(), 601);
    EXPECT_FALSE(cut.at(599).isHighSurrogate());
    EXPECT_EQ(RowText::line("a" + emoji).toUtf8().count("\xef\xbf\xbd"), 0) << "none is halved";
    const std::string tail(30000, 'x');
    EXPECT_TRUE(RowText::markedText(tail + " end", "end").endsWith(QStringLiteral("x end")))
        << "the whole text, of which the beginning is searched";
}

TEST(RulesScope, IsOnePath) {
    const auto row = [](const char* path, bool filed) {
        EditorScopeRow made{.path = path};
        if (filed)
            made.kinds = {{.name = "rule", .count = 1}};
        return made;
    };
    const std::vector board{row("/a", false), row("/c", true), row("/b", true)};
    EXPECT_EQ(rulesScope({"/x"}, board), "/x");
    EXPECT_EQ(rulesScope({"/x", "/y"}, board), "/");
    EXPECT_EQ(rulesScope({}, board), "/b");
    EXPECT_EQ(rulesScope({}, {row("/a", false)}), "/");
}

struct EditorDetailsAsked : ::testing::Test {
    ScriptedPages pages;
    EditorDetails details{pages};

    void request(std::vector<std::string> ids, EditorAsker asker = EditorAsker::page) {
        details.request(ids, asker);
    }
    void answer(const char* id, const char* why) {
        pages.answerDetail(EditorMemoryDetail{.id = id, .why = why, .body = {}});
    }
    std::string why(const char* id) const {
        const auto found = details.known().find(id);
        return found == details.known().end() ? "not known"
               : found->second                ? found->second->why
                                              : "nothing came";
    }
};

TEST_F(EditorDetailsAsked, ComeTogetherAndAreAskedForOnce) {
    request({"a", "b"});
    request({"b", "a"});
    answer("a", "one");
    EXPECT_EQ(why("a"), "not known") << "not before both are there";
    pages.answerDetail(std::nullopt);
    EXPECT_EQ(why("a"), "one");
    EXPECT_EQ(why("b"), "nothing came");
    request({"a", "b"});
    EXPECT_EQ(why("b"), "not known") << "it is under way again";
    answer("b", "two");
    EXPECT_EQ(why("b"), "two");
    EXPECT_THAT(pages.detailsAsked, ElementsAre("a", "b", "b"));
}

/// What was read before a write is not what there is now.
TEST_F(EditorDetailsAsked, WhatWasUnderWayWhenAllWasForgottenComesToNothing) {
    request({"a", "b"});
    details.clear();
    request({"a"});
    answer("a", "old");
    EXPECT_EQ(why("a"), "not known");
    answer("a", "new");
    EXPECT_EQ(why("a"), "new");
    EXPECT_THAT(pages.detailsAsked, ElementsAre("a", "a"));
}

TEST_F(EditorDetailsAsked, OneAskersChangeOfMindHoldsUpNoOther) {
    request({"a", "b", "c"}, EditorAsker::search);
    request({"b"}, EditorAsker::page);
    details.abandon(EditorAsker::search);
    request({"d"}, EditorAsker::search);
    answer("a", "left");
    answer("b", "one");
    answer("d", "two");
    EXPECT_FALSE(pages.detailWaits()) << "c is asked for no more";
    EXPECT_EQ(why("b") + why("d"), "onetwo");
    details.retire();
    request({"e"});
    EXPECT_FALSE(pages.detailWaits());
    EXPECT_THAT(details.known(), IsEmpty());
}

} // namespace
} // namespace wendlow::testing
