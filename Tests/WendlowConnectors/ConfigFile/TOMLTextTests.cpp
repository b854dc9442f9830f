#include "ConfigFile/TOMLText.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using namespace std::string_literals;

TEST(TOMLText, RefusesWithAReasonAndAnOffset) {
    const struct {
        std::string bytes;
        std::string description;
    } cases[] = {
        {"a", "the file ended inside a key (at byte 1)"},
        {"[[a.", "the file ended inside a key (at byte 4)"},
        {"= 1", "a key was expected (at byte 0)"},
        {"a..b = 1", "a key was expected (at byte 2)"},
        {"[]\n", "a key was expected (at byte 1)"},
        {"a = 1\n\r", "a key was expected (at byte 6)"},
        {"\xEF\xBB\xBF\xEF\xBB\xBF"
         "a = 1",
         "a key held a character that is not allowed in one (at byte 3)"},
        {"a\nb = 1", "a key held a character that is not allowed in one (at byte 1)"},
        {"\"\"\"a\"\"\" = 1", "a key held a character that is not allowed in one (at byte 2)"},
        {"é = 1", "a key held a character that is not allowed in one (at byte 0)"},
        {"[a", "a table header did not close (at byte 2)"},
        {"[[a] ]", "a table header did not close (at byte 4)"},
        {"[ [a]]", "a key held a character that is not allowed in one (at byte 2)"},
        {"[a] b = 1", "there are bytes after the end of a value (at byte 4)"},
        {"a = 1979-05-27 7:32", "there are bytes after the end of a value (at byte 15)"},
        {"a = x979-05-27 07:32", "there are bytes after the end of a value (at byte 15)"},
        {"a = 1\r", "there are bytes after the end of a value (at byte 5)"},
        {"a = [1]]", "a value closed a bracket it never opened (at byte 7)"},
        {"a = }", "a value closed a bracket it never opened (at byte 4)"},
        {"a = [{ # ]}\n'}'", "a value was left open at the end of the file (at byte 4)"},
        {"a = " + std::string(1 << 20, '['),
         "a value was left open at the end of the file (at byte 4)"},
        {"a = [\"\\e\"]", "a string holds an escape that is not TOML's (at byte 5)"},
        {"a = \"\\ \n\"", "a string holds an escape that is not TOML's (at byte 4)"},
        {"a = \"\"\"\\ x\"\"\"", "a string holds an escape that is not TOML's (at byte 4)"},
        {"a = \"\\ud800\"", "a string holds an escape that is not a character (at byte 4)"},
        {"a = \"\\U00110000\"", "a string holds an escape that is not a character (at byte 4)"},
        {"a = \"\\u12g4\"", "a string holds a \\u escape that is not four hex digits (at byte 4)"},
        {"a = \"\\U0001234\"",
         "a string holds a \\U escape that is not eight hex digits (at byte 4)"},
        {"a = \"\\", "the file ended inside an escape (at byte 4)"},
        {"\"a\nb\" = 1", "a string ran past the end of its line (at byte 0)"},
        {"a = 'b\r\n'", "a string ran past the end of its line (at byte 4)"},
        {"a = \"\"\"\0\"\"\""s, "a string holds an unescaped control character (at byte 4)"},
        {"a = '\x7F'", "a string holds an unescaped control character (at byte 4)"},
        {"a = \"\xC3\"", "a string holds bytes that are not UTF-8 (at byte 4)"},
        {"a = '\xED\xA0\x80'", "a string holds bytes that are not UTF-8 (at byte 4)"},
        {"a = \"\xE2\x82", "a string holds bytes that are not UTF-8 (at byte 4)"},
        {"[a.\"b", "a string never closed (at byte 3)"},
        {"a = '''b''", "a multi-line string never closed (at byte 4)"},
        {"a = \"\"\"b\\\n \"\"", "a multi-line string never closed (at byte 4)"},
    };
    for (const auto& [bytes, description] : cases) {
        const auto document = TOMLText::scan(bytes);
        ASSERT_FALSE(document) << bytes;
        EXPECT_EQ(document.error().description(), description) << bytes.substr(0, 80);
    }
}

/// Everything that a scan tells of a document, in one line per table and per entry.
std::string outline(std::string_view bytes) {
    const auto document = TOMLText::scan(bytes);
    if (!document)
        return document.error().description();
    std::string result;
    for (const auto& table : document->tables()) {
        result += fmt::format("{}{} {} {}-{}\n", table.isArrayElement ? "[]" : "",
                              TOMLText::joined(table.name), table.headerStart, table.bodyStart,
                              table.bodyEnd);
        for (const auto& entry : document->entries(table)) {
            result += fmt::format("  {} {} {}-{} <{}>", TOMLText::joined(entry.key), entry.keyStart,
                                  entry.valueEnd, entry.lineEnd, entry.raw);
            result += entry.text ? fmt::format(" text <{}>\n", *entry.text) : "\n";
        }
    }
    for (const auto& comment : document->comments())
        result += fmt::format("{}\n", bytes.substr(comment.lower, comment.size()));
    return result;
}

TEST(TOMLText, TellsWhereEverythingStands) {
    EXPECT_EQ(outline(""), " 0 0-0\n");
    EXPECT_EQ(outline("\xEF\xBB\xBF"), " 3 3-3\n");
    EXPECT_EQ(outline("\xEF\xBB\xBF"
                      "a=1"),
              " 3 3-6\n  a 3 6-6 <1>\n");
    EXPECT_EQ(outline("a = '#'\r\n# one\r\n\r\n [ a . \"b.c\" ] # two\r\n\r\n# three\r\n"
                      "x.\"\".'y'\t= \"\\u00e9\"# four\r\n# five\r\n\n[[a]]"),
              " 0 0-9\n  a 0 7-9 <'#'> text <#>\n"
              "a.\"b.c\" 19 40-78\n  x.\"\".y 51 70-78 <\"\\u00e9\"> text <é>\n"
              "[]a 87 92-92\n# one\n# two\n# three\n# four\n# five\n");
    EXPECT_EQ(outline("x = [1, # ] comment\n2]\nd = 1979-05-27 07:32:00 # day\ne = 1979-05-27 #\n"),
              " 0 0-70\n  x 0 22-23 <[1, # ] comment\n2]>\n"
              "  d 23 46-53 <1979-05-27 07:32:00>\n  e 53 67-70 <1979-05-27>\n"
              "# ] comment\n# day\n#\n");
    // Laxer than TOML, deliberately: what a value says is for the tool that reads it to judge.
    EXPECT_EQ(outline("a =\nb = [}\nc = 'x'y\nd = ,5,\na = 2"),
              " 0 0-33\n  a 0 3-4 <>\n  b 4 10-11 <[}>\n  c 11 19-20 <'x'y>\n"
              "  d 20 27-28 <,5,>\n  a 28 33-33 <2>\n");
}

TEST(TOMLText, QuotesWhatItCanReadBack) {
    EXPECT_EQ(TOMLText::quote("C:\\x \"y\"/é\t\n\r\b\x1F\x7F"s + '\0'),
              "\"C:\\\\x \\\"y\\\"/é\\t\\n\\r\\u0008\\u001F\\u007F\\u0000\"");
    for (const TOMLName& name : {TOMLName{"a", "b.c", "", "é", "x\ny'\"\\"}, {"A-Z_09"}, {" "}}) {
        const auto bytes = fmt::format("[{}]", TOMLText::joined(name));
        const auto document = TOMLText::scan(bytes);
        ASSERT_TRUE(document) << bytes;
        EXPECT_NE(document->table(name), nullptr) << bytes;
    }
    EXPECT_EQ(TOMLText::joined(TOMLName{"a", "b.c", "", "A-Z_09"}), "a.\"b.c\".\"\".A-Z_09");
    EXPECT_EQ(TOMLText::lineEnding("a\nb\r\n"), "\r\n");
    EXPECT_EQ(TOMLText::lineEnding("a\rb\n\r"), "\n");
}

TEST(TOMLText, SaysWhichShapesAreNotFitToEdit) {
    const struct {
        std::string bytes;
        std::string reason; ///< empty: fit
    } cases[] = {
        {"[[o]]\n[[p.w.s]]\n[o.w]\n[o.w]\nq = 1\nq = 2\n", ""},
        {"[p.w]\ne.a = 1\ne.b = 2\n[p.w.e]\n[[p.w.s]]\n[p]\nwx = 1\nx.w = 1\n", ""},
        {"[[p.w]]\n[p.w]",
         "the table [[p.w]] is an array of tables, which is not a shape this build can edit"},
        {"[[p]]\n",
         "the table [[p]] is an array of tables, which is not a shape this build can edit"},
        {"[p.w]\n[\"p\".'w']\n", "the table [p.w] is declared twice in this file"},
        {"[p.w]\na = 1\ne.\"b c\" = 1\ne . 'b c' = 2\na = 2",
         "the key e.\"b c\" appears twice in [p.w] (at byte 24)"},
        {"p.w.a = 1", "the key p.w.a states the Wendlow block outside a table of its own, which is "
                      "not a shape this build can edit"},
        {"[o]\np.w = 1\n[p]\nw = { a = 1 }",
         "the key w states the Wendlow block outside a table of its own, which is not a shape this "
         "build can edit"},
        {"p = { o = 1 }", "the key p states the Wendlow block outside a table of its own, which is "
                          "not a shape this build can edit"},
        {"[t.\"/h:0\"]\n[t.\"/h:0\"]", "the table [t.\"/h:0\"] is declared twice in this file"},
    };
    const TOMLName owned[] = {{"p", "w"}, {"t", "/h:0"}};
    for (const auto& [bytes, reason] : cases) {
        const auto document = TOMLText::scan(bytes);
        ASSERT_TRUE(document) << bytes;
        EXPECT_EQ(TOMLText::unreadableReason(*document, owned).value_or(Unreadable{}).reason,
                  reason)
            << bytes;
    }
}

} // namespace
} // namespace wendlow
