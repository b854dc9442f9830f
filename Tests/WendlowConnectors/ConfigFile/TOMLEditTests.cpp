#include "ConfigFile/TOMLEdit.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

const TOMLName ours = {"p", "w"};
const TOMLEdit::Line lines[] = {{"k", "1"}, {"l m", "[]"}};

TEST(TOMLEdit, SetsATableAndLeavesTheRest) {
    const struct {
        std::string before;
        std::string after;
        bool created;
        bool appendedTrailingNewline;
    } cases[] = {
        {"", "[p.w]\nk = 1\n\"l m\" = []\n", true, false},
        {"a = 1\n", "a = 1\n\n[p.w]\nk = 1\n\"l m\" = []\n", true, false},
        {"# a\r\nb = 1", "# a\r\nb = 1\r\n\r\n[p.w]\r\nk = 1\r\n\"l m\" = []\r\n", true, true},
        {"\xEF\xBB\xBF", "\xEF\xBB\xBF\n\n[p.w]\nk = 1\n\"l m\" = []\n", true, true},
        {"[p.w]", "[p.w]\nk = 1\n\"l m\" = []\n", false, true},
        {"[p.w] # c\r\n", "[p.w] # c\r\nk = 1\r\n\"l m\" = []\r\n", false, false},
        {"[p.w]\nx = 1", "[p.w]\nk = 1\n\"l m\" = []\n", false, true},
        // A comment between the entries goes with them; those around the body are nobody's.
        {"#a\n[ p . 'w' ]\n#b\nx = [\n1]\n\n#c\ny = 2 #d\n\n#e\n [p.w.s]\nz = 1\n",
         "#a\n[ p . 'w' ]\nk = 1\n\"l m\" = []\n\n#e\n [p.w.s]\nz = 1\n", false, false},
        {"[p.w]\n# b\n\n[c]\n", "[p.w]\nk = 1\n\"l m\" = []\n# b\n\n[c]\n", false, false},
    };
    for (const auto& [before, after, created, appended] : cases) {
        const auto set = TOMLEdit::setTable(before, ours, lines);
        ASSERT_TRUE(set) << description(set.error());
        EXPECT_EQ(set->bytes, after);
        EXPECT_EQ(set->created, created) << before;
        EXPECT_EQ(set->appendedTrailingNewline, appended) << before;
        const auto again = TOMLEdit::setTable(set->bytes, ours, lines);
        EXPECT_EQ(again->bytes, after) << "a second time changed something";
    }
}

TEST(TOMLEdit, RemovesATableWithOneBlankLine) {
    const struct {
        std::string before;
        std::string after;
    } cases[] = {
        {"[p.w]\nk = 1\n", ""},
        {"[p.w]\nk = 1\n \t\n\n[b]\n", "\n[b]\n"},
        {"\xEF\xBB\xBF[p.w]\r\nk = 1\r\n\r\n[b]\r\n", "\xEF\xBB\xBF[b]\r\n"},
        {"\n\n[p.w]\n\n[b]\n", "\n\n[b]\n"},
        {"[a]\nx = 1\n\n[p.w]\nk = 1\n\n[b]\n", "[a]\nx = 1\n\n[b]\n"},
        {"[a]\r\n \t\r\n  [p.w]\r\nk = 1\r\n\r\n  [b]\r\n", "[a]\r\n\r\n  [b]\r\n"},
        {"[a]\n\n\n[p.w]\n\n\n[b]\n", "[a]\n\n\n\n[b]\n"},
        {"[a]\n# ours?\n\t[p.w] #c\n#d\nk = '''\n[q]\n'''\n# for b\n[b]\n",
         "[a]\n# ours?\n# for b\n[b]\n"},
        {"  [p.w]\nk = 1\n\n[p.w.s]\nx = 1", "[p.w.s]\nx = 1"},
        {"[p]\n[p.w]\n[p.w]\nk = 1\n", "[p]\n[p.w]\nk = 1\n"},
    };
    for (const auto& [before, after] : cases) {
        const auto removed = TOMLEdit::removeTable(before, ours);
        ASSERT_TRUE(removed) << description(removed.error());
        EXPECT_EQ(*removed, after) << before;
    }
}

TEST(TOMLEdit, SetsAndRemovesOneKey) {
    const struct {
        std::string before;
        std::string set;
        bool appendedTrailingNewline;
        std::string removed; ///< key `k` of `before`; the same as `before` if it has none
    } cases[] = {
        {"[p.w]\nk = [ # c\n1] # d\nl = 2\n", "[p.w]\nk = 9 # d\nl = 2\n", false, "[p.w]\nl = 2\n"},
        {"[p.w]\r\n l = 2\r\n \"k\"='''\r\n'''", "[p.w]\r\n l = 2\r\n k = 9", false,
         "[p.w]\r\n l = 2\r\n"},
        {"[p.w]\nl = 2 # d\n\n# c\n[b]\n", "[p.w]\nl = 2 # d\nk = 9\n\n# c\n[b]\n", false,
         "[p.w]\nl = 2 # d\n\n# c\n[b]\n"},
        {"[p.w]\r\nk.l = 2", "[p.w]\r\nk.l = 2\r\nk = 9\r\n", true, "[p.w]\r\nk.l = 2"},
        {"[p.w]", "[p.w]\nk = 9\n", true, "[p.w]"},
    };
    for (const auto& [before, set, appended, removed] : cases) {
        const auto document = TOMLText::scan(before);
        ASSERT_TRUE(document) << document.error().description();
        const auto& table = *document->table(ours);
        const auto result = TOMLEdit::setKey(before, table, document->entries(table), "k", "9");
        EXPECT_EQ(result.bytes, set);
        EXPECT_EQ(result.appendedTrailingNewline, appended) << before;
        auto without = before;
        for (const auto& entry : document->entries(table)) {
            if (entry.isKey("k"))
                without = TOMLEdit::removeKey(before, entry);
        }
        EXPECT_EQ(without, removed);
    }
    // The root's keys: a byte-order mark belongs to no line.
    const std::string marked = "\xEF\xBB\xBFk = 1\n";
    const auto document = TOMLText::scan(marked);
    EXPECT_EQ(TOMLEdit::removeKey(marked, document->entries(document->tables()[0])[0]),
              "\xEF\xBB\xBF");
    EXPECT_EQ(TOMLEdit::setKey(marked, document->tables()[0], {}, "j k", "2").bytes,
              "\xEF\xBB\xBFk = 1\n\"j k\" = 2\n");
}

TEST(TOMLEdit, RefusesWhatItCannotFindOrRead) {
    const auto sentence = [](const auto& result) {
        return result ? "no refusal" : description(result.error());
    };
    EXPECT_EQ(sentence(TOMLEdit::removeTable("[p]\n[p.w.s]\n", {"p", "w x"})),
              "the table [p.\"w x\"] is not in this file");
    EXPECT_EQ(sentence(TOMLEdit::removeTable("a = 1\n", {})), "the table [] is not in this file");
    EXPECT_EQ(sentence(TOMLEdit::setTable("a = 1\n", {}, lines)),
              "the table [] is not in this file");
    EXPECT_EQ(sentence(TOMLEdit::removeTable("[p.w]\na", ours)),
              "the file ended inside a key (at byte 7)");
    EXPECT_EQ(sentence(TOMLEdit::setTable("[p.w]\na = \"", ours, lines)),
              "a string never closed (at byte 10)");
}

} // namespace
} // namespace wendlow
