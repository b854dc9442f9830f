// What holds for every file, whatever its layout.

#include "ConfigFile/JSONEdit.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

constexpr auto dialect = JSONDialect::jsonWithComments;

JSONLiteral entry() {
    return JSONLiteral::object({{"list", JSONLiteral::array({JSONLiteral::number(1)})}});
}

struct Layout {
    std::string newline;
    std::string indent;
    std::string finalLineEnd;
    std::string comment; ///< behind each member
};

std::vector<Layout> layouts() {
    std::vector<Layout> result;
    for (const std::string newline : {"\n", "\r\n", ""}) {
        for (const std::string indent : {"  ", "    ", "\t"}) {
            result.push_back({newline, indent, newline, ""});
            result.push_back({newline, indent, "", newline.empty() ? " /* c */" : " // c"});
            result.push_back({newline, indent, "\r", "/* \xC3\xBC */"});
        }
    }
    return result;
}

/// {"o": {"k0": [0], "k1": [1], ...}} with `count` members inside.
std::string fixture(const Layout& layout, int count) {
    const auto& [newline, indent, finalLineEnd, comment] = layout;
    std::string members;
    for (int member = 0; member < count; ++member) {
        members += fmt::format("{}{}{}\"k{}\" : [{}]{}", newline, indent, indent, member, member,
                               member + 1 < count ? "," : "");
        members += comment;
    }
    return fmt::format("{{{0}{1}\"o\": {{{2}{0}{1}}}{0}}}{3}", newline, indent, members,
                       finalLineEnd);
}

JSONValue valueOf(const std::string& bytes) {
    const auto document = JSONText::scanWithTrivia(bytes, dialect);
    EXPECT_TRUE(document) << bytes;
    return document ? document->root().value(bytes) : JSONValue{JSONValue::Null()};
}

/// The members of the root's "o".
JSONValue::Object& inner(JSONValue& root) {
    return std::get<JSONValue::Object>(std::get<JSONValue::Object>(root.value).at("o").value);
}

std::string onlyChanged(const std::string& before, const std::string& after, ByteRange range) {
    if (!after.starts_with(before.substr(0, range.lower)) ||
        !after.ends_with(before.substr(range.upper))) {
        return "bytes outside the range changed";
    }
    return "";
}

TEST(JSONEditProperty, aNewMemberComesAndGoesWithoutATrace) {
    for (const auto& layout : layouts()) {
        for (const int count : {1, 2, 5}) {
            const auto before = fixture(layout, count);
            const auto set = JSONEdit::setMember(before, {"o"}, "new", entry(), dialect);
            ASSERT_TRUE(set) << before;
            auto expected = valueOf(before);
            inner(expected)["new"] = entry().value();
            EXPECT_EQ(valueOf(*set), expected) << *set;
            EXPECT_EQ(set->find("\r\n") != std::string::npos, layout.newline == "\r\n") << *set;
            EXPECT_EQ(JSONEdit::removeMember(*set, {"o"}, "new", dialect), before) << *set;
        }
    }
}

TEST(JSONEditProperty, changesNothingOutsideOneMember) {
    for (const auto& layout : layouts()) {
        for (const auto& [count, member] : {std::pair{1, 0}, {3, 0}, {3, 1}, {3, 2}}) {
            const auto before = fixture(layout, count);
            const auto key = fmt::format("k{}", member);
            const auto document = JSONText::scanWithTrivia(before, dialect);
            ASSERT_TRUE(document) << before;
            const auto object = *document->root().node({"o"});
            const auto value = object.member(key)->range();

            const auto set = JSONEdit::setMember(before, {"o"}, key, entry(), dialect);
            ASSERT_TRUE(set) << before;
            EXPECT_EQ(onlyChanged(before, *set, value), "") << *set;
            auto expected = valueOf(before);
            inner(expected)[key] = entry().value();
            EXPECT_EQ(valueOf(*set), expected) << *set;

            const auto removed = JSONEdit::removeMember(before, {"o"}, key, dialect);
            ASSERT_TRUE(removed) << before;
            const auto upper = count == 1   ? object.end() - 1
                               : member > 0 ? value.upper
                                            : before.find("\"k1\"");
            const auto previous = object.member(fmt::format("k{}", member - 1));
            const auto lower = count == 1   ? object.start() + 1
                               : member > 0 ? previous->end()
                                            : before.find("\"k0\"");
            EXPECT_EQ(onlyChanged(before, *removed, {lower, upper}), "") << *removed;
            expected = valueOf(before);
            inner(expected).erase(key);
            EXPECT_EQ(valueOf(*removed), expected) << *removed;
            EXPECT_EQ(JSONText::scanWithTrivia(*removed, dialect)->comments().size(),
                      document->comments().size())
                << *removed;
        }
    }
}

TEST(JSONEditProperty, aNewElementComesAndGoesWithoutATrace) {
    for (const auto& layout : layouts()) {
        if (layout.comment.empty()) {
            const auto before = fixture(layout, 2);
            const auto longer = JSONEdit::appendElement(before, {"o", "k1"}, entry());
            ASSERT_TRUE(longer) << before;
            EXPECT_EQ(JSONEdit::removeElement(*longer, {"o", "k1"}, 1), before) << *longer;
        }
    }
}

TEST(JSONEditProperty, worksOnTenThousandMembers) {
    const auto before = fixture({"\n", "  ", "\n", " // c"}, 10000);
    for (const std::string key : {"k0", "k5000", "k9999", "new"}) {
        const auto set = JSONEdit::setMember(before, {"o"}, key, entry(), dialect);
        ASSERT_TRUE(set);
        auto expected = valueOf(before);
        inner(expected)[key] = entry().value();
        EXPECT_EQ(valueOf(*set), expected) << key;
        const auto removed = JSONEdit::removeMember(*set, {"o"}, key, dialect);
        ASSERT_TRUE(removed);
        inner(expected).erase(key);
        EXPECT_EQ(valueOf(*removed), expected) << key;
    }
}

} // namespace
} // namespace wendlow
