#include "ConfigFile/JSONComments.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

TEST(JSONComments, spansOneComment) {
    const struct {
        std::string bytes;
        std::size_t offset;
        std::optional<ByteRange> range;
    } cases[] = {
        {"// a\nb", 0, ByteRange{0, 4}}, {"// a\r\nb", 0, ByteRange{0, 4}},
        {"// a\rb", 0, ByteRange{0, 6}}, {"x// a\r", 1, ByteRange{1, 5}},
        {"//\r\n", 0, ByteRange{0, 2}},  {"x//", 1, ByteRange{1, 3}},
        {"/**/", 0, ByteRange{0, 4}},    {"/*/ */ */", 0, ByteRange{0, 6}},
        {"/", 0, std::nullopt},          {"a//", 0, std::nullopt},
        {"/a", 0, std::nullopt},         {"", 0, std::nullopt},
        {"//", 7, std::nullopt},
    };
    for (const auto& [bytes, offset, range] : cases) {
        const auto found = JSONComments::span(bytes, offset);
        ASSERT_TRUE(found) << bytes;
        EXPECT_EQ(*found, range) << bytes;
    }
    for (const std::string_view open : {" /*", " /* a", " /*/"}) {
        const auto found = JSONComments::span(open, 1);
        ASSERT_FALSE(found) << open;
        EXPECT_EQ(found.error().description(), "the document ended inside a comment (at byte 1)");
    }
}

TEST(JSONComments, countsThoseWhollyInside) {
    const ByteRange comments[] = {{2, 6}, {8, 10}, {10, 14}};
    const std::pair<ByteRange, std::size_t> cases[] = {{{0, 20}, 3}, {{2, 14}, 3}, {{3, 14}, 2},
                                                       {{2, 13}, 2}, {{3, 9}, 0},  {{20, 30}, 0}};
    for (const auto& [range, count] : cases) {
        EXPECT_EQ(JSONComments::count(comments, range), count) << range.lower;
    }
}

TEST(JSONComments, keepsWhatACutWouldLose) {
    // The range to cut stands between the bars.
    const struct {
        std::string marked;
        std::string kept;
        std::string newline = "\n";
    } cases[] = {
        {"1|,2|", ""},
        {"1  |  /*a*/,2|", "  /*a*/"},
        {"1|,\r\n\t// a\r\n2|\r\n", "\r\n\t// a", "\r\n"},
        {"1|,\n // a\n2|}", "\n // a\r\n", "\r\n"},
        {"1|,// a\n2|\r}", "// a\n"},
        {"|1, // a\n|2", " // a\n"},
        {"1|, // a\n // b\n 2|\n", " // a\n // b"},
        {"1|, // a\n2/*b*/|", " // a\n/*b*/"},
        {"1|, // a\n2\r/*b*/|", " // a\n\r/*b*/"},
        {"1|, /*\xC3\xED\xA0*/2|", " /*\uFFFD\uFFFD\uFFFD*/"},
    };
    for (const auto& [marked, kept, newline] : cases) {
        const auto lower = marked.find('|');
        const auto upper = marked.rfind('|') - 1;
        auto bytes = marked;
        std::erase(bytes, '|');
        std::vector<ByteRange> comments;
        for (std::size_t at = 0; at < bytes.size(); ++at) {
            if (const auto comment = JSONComments::span(bytes, at).value()) {
                comments.push_back(*comment);
                at = comment->upper - 1;
            }
        }
        EXPECT_EQ(JSONComments::preserved(bytes, comments, {lower, upper}, newline), kept)
            << marked;
    }
}

} // namespace
} // namespace wendlow
