#include "Ranking/EditorRelevance.h"
#include "Ranking/EditorText.h"

#include <cmath>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::ElementsAre;
using Tokens = EditorBM25::Tokens;

TEST(EditorText, breaksWordsAtEverythingOutsideASCII) {
    EXPECT_THAT(EditorText::tokenize("Build-2 café, naïve\tÉtat\nx"),
                ElementsAre("build", "2", "caf", "na", "ve", "tat", "x"));
    EXPECT_TRUE(EditorText::tokenize("日本語 — …").empty());
    // The sign of the kelvin and the dotted capital I are letters of ASCII in lower case.
    EXPECT_THAT(EditorText::tokenize("5\u212Ag D\u0130x \xFFq"),
                ElementsAre("5kg", "di", "x", "q"));
}

TEST(EditorBM25, weighsRareWordsMoreAndCommonOnesNeverLess) {
    EXPECT_FALSE(EditorBM25::of({}) || EditorBM25::of(std::vector<Tokens>(3)));
    // Everybody says "the" in a corpus of three; it still tells a quarter.
    const std::vector<Tokens> small{{"the", "fox"}, {"the", "dog"}, {"the", "dog", "cat", "cat"}};
    const auto three = EditorBM25::of(small);
    EXPECT_DOUBLE_EQ(*three->idf("the"), 0.25);
    EXPECT_DOUBLE_EQ(*three->idf("cat"), std::log(2.5) - std::log(1.5));
    EXPECT_EQ(three->idf("none"), std::nullopt);
    EXPECT_DOUBLE_EQ(three->averageLength(), 8.0 / 3);

    // In a corpus of sixty it tells a quarter of the mean.
    std::vector<Tokens> large(60, {"the"});
    for (std::size_t doc = 0; doc < large.size(); ++doc)
        large[doc].push_back("word" + std::to_string(doc));
    const auto sixty = EditorBM25::of(large);
    const double rare = std::log(59.5) - std::log(1.5);
    const double common = std::log(0.5) - std::log(60.5);
    EXPECT_NEAR(*sixty->idf("the"), 0.25 * (60 * rare + common) / 61, 1e-12);
    EXPECT_NEAR(*sixty->idf("word7"), rare, 1e-12);
}

TEST(EditorBM25, scoresByFrequencyAndLength) {
    const std::vector<Tokens> corpus{{"fox", "fox"}, {"fox", "dog", "dog", "dog"}, {"dog"}};
    const auto index = EditorBM25::of(corpus);
    const double idf = *index->idf("fox");
    const auto expected = [&](double freq, double length) {
        return idf * 2.5 * freq / (1.5 * (0.25 + 0.75 * length / (7.0 / 3)) + freq);
    };
    const auto scores = index->scores(Tokens{"fox", "unheard"});
    EXPECT_NEAR(scores[0], expected(2, 2), 1e-12);
    EXPECT_NEAR(scores[1], expected(1, 4), 1e-12);
    EXPECT_EQ(scores[2], 0);
    // Said twice, meant twice.
    EXPECT_NEAR(index->scores(Tokens{"fox", "fox"})[0], 2 * expected(2, 2), 1e-12);
}

TEST(EditorRelevance, ordersRowsAndKeepsTheirTiesStill) {
    const auto hit = [](const char* id, const char* title, int day, const char* body = "") {
        return EditorMemoryHit{
            .memory = {.id = id, .type = {}, .title = title, .body = body, .day = editorDate(day)},
            .scopeID = {},
            .score = 7};
    };
    const EditorMemoryHits corpus{hit("d", "harbour", 1), hit("b", "ship", 3, "harbour harbour"),
                                  hit("c", "nothing", 2), hit("a", "nothing", 2)};
    const EditorRelevance relevance(corpus);
    const auto ids = [&](EditorMemorySort by, const char* term) {
        std::string all;
        for (const auto& row : ordered(corpus, by, term, relevance))
            all += row.memory.id;
        return all;
    };
    EXPECT_EQ(ids(EditorMemorySort::relevance, "Harbour"), "dbac");
    EXPECT_EQ(ids(EditorMemorySort::relevance, "日本"), "bcad");
    EXPECT_EQ(ids(EditorMemorySort::newest, "harbour"), "bcad");
    EXPECT_EQ(ids(EditorMemorySort::oldest, ""), "dcab");
    const auto best = ordered(corpus, EditorMemorySort::relevance, "harbour", relevance);
    EXPECT_DOUBLE_EQ(best[0].score, 1);
    EXPECT_EQ(best[3].score, 0);
    EXPECT_EQ(ordered(corpus, EditorMemorySort::relevance, "unheard", relevance)[0].score, 0);
    EXPECT_EQ(ordered(corpus, EditorMemorySort::newest, "harbour", relevance)[0].score, 7);
    EXPECT_EQ(defaulting({}, true), EditorMemorySort::relevance);
    EXPECT_EQ(defaulting({}, false), EditorMemorySort::newest);
}

} // namespace
} // namespace wendlow
