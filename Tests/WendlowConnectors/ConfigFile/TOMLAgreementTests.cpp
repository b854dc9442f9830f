// The scanner beside a whole parser of TOML: what that one accepts is scanned, and both say the
// same of every table, key and string and of where they stand.

#include "ConfigFile/TOMLText.h"

#include <gtest/gtest.h>
#include <random>
#include <regex>

// It asserts, and without assertions assumes, what damaged files do not keep to.
#undef NDEBUG
#define TOML_ASSERT(condition) static_cast<void>(0)
#define TOML_EXCEPTIONS 0
#include <toml++/toml.h>

namespace wendlow {
namespace {

/// The byte offset of a position that counts lines and characters from one.
std::size_t offset(std::string_view bytes, toml::source_position position) {
    std::size_t at = bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    for (auto line = position.line; line > 1; --line)
        at = bytes.find('\n', at) + 1;
    for (auto column = position.column; column > 1; --column) {
        do {
            ++at;
        } while (at < bytes.size() && (static_cast<unsigned char>(bytes[at]) & 0xC0U) == 0x80);
    }
    return at;
}

std::size_t values(const toml::node& node) {
    std::size_t count = 0;
    if (const auto* const table = node.as_table(); table != nullptr && !table->is_inline()) {
        for (const auto& [key, child] : *table)
            count += values(child);
        return count;
    }
    const auto* const array = node.as_array();
    const auto* const first = array == nullptr ? nullptr : array->get_as<toml::table>(0);
    if (first == nullptr || first->is_inline())
        return 1;
    for (const auto& element : *array)
        count += values(element);
    return count;
}

/// Follows what the scan says into the parser's tree.
class Agreement {
public:
    Agreement(std::string_view bytes, const toml::table& root) : m_bytes(bytes), m_root(root) {}

    void check() {
        const auto document = TOMLText::scan(m_bytes);
        ASSERT_TRUE(document) << document.error().description();
        std::size_t count = 0;
        for (const auto& table : document->tables()) {
            const auto* const node = header(table);
            ASSERT_TRUE(node != nullptr && node->is_table()) << TOMLText::joined(table.name);
            if (table.name.size() != 0) {
                EXPECT_EQ(offset(m_bytes, node->source().begin), table.headerStart);
            }
            for (const auto& entry : document->entries(table))
                checkEntry(*node->as_table(), entry);
            count += document->entries(table).size();
        }
        EXPECT_EQ(count, values(m_root));
    }

private:
    /// A name goes to the last element of each array of tables on its way.
    const toml::node* header(const TOMLTable& table) {
        const toml::node* node = &m_root;
        std::string path;
        for (std::size_t index = 0; index < table.name.size(); ++index) {
            if (node == nullptr || !node->is_table())
                return nullptr;
            node = node->as_table()->get(table.name[index]);
            path += TOMLText::quote(table.name[index]);
            if (table.isArrayElement && index + 1 == table.name.size())
                ++m_arrays[path];
            if (const auto found = m_arrays.find(path); found != m_arrays.end()) {
                if (node == nullptr || !node->is_array())
                    return nullptr;
                node = node->as_array()->get(found->second - 1);
                path += std::to_string(found->second);
            }
        }
        return node;
    }

    void checkEntry(const toml::table& parent, const TOMLEntry& entry) const {
        const auto* table = &parent;
        for (std::size_t index = 0; index + 1 < entry.key.size(); ++index) {
            table = table->get_as<toml::table>(entry.key[index]);
            ASSERT_NE(table, nullptr) << TOMLText::joined(entry.key);
        }
        const auto found = table->find(entry.key[entry.key.size() - 1]);
        ASSERT_NE(found, table->end()) << TOMLText::joined(entry.key);
        const auto& [key, node] = *found;
        const auto keyStart = offset(m_bytes, key.source().begin);
        const auto valueStart = entry.valueEnd - entry.raw.size();
        EXPECT_GE(keyStart, entry.keyStart);
        EXPECT_LT(keyStart, valueStart);
        if (entry.key.size() == 1) {
            EXPECT_EQ(keyStart, entry.keyStart);
        }
        EXPECT_EQ(offset(m_bytes, node.source().begin), valueStart) << entry.raw;
        EXPECT_EQ(offset(m_bytes, node.source().end), entry.valueEnd) << entry.raw;
        EXPECT_EQ(entry.text, node.value_exact<std::string_view>());
    }

    std::string_view m_bytes;
    const toml::table& m_root;
    std::map<std::string, std::size_t> m_arrays;
};

/// Whether the parser accepts `bytes`; if so, the scan has to agree.
bool agrees(std::string_view bytes) {
    const auto parsed = toml::parse(bytes);
    if (!parsed)
        return false;
    SCOPED_TRACE(bytes);
    Agreement(bytes, parsed.table()).check();
    return true;
}

TEST(TOMLAgreement, HoldsForFilesWrittenByHand) {
    const std::string bodies[] = {
        "",
        "# only a comment",
        "\n\n",
        "a = 1",
        "[a]",
        "[[a]]",
        "a.b.c = 1\na . \"b\".d = 2\n'a'.e.\"\" = 3\n\"\" = 4\n1.2 = 5\n",
        "[a.b]\nc.d = 1\n[ \"a\" . 'c.d' ] # two\n[a]\nx = 2\n",
        "[[a]]\nx = 1\n[a.b]\ny = 2\n[[a]]\n[a.b]\ny = 3\n[[a.c]]\n[[a.c]]\nz = 4\n[[b]]\n",
        "a = { b = 1, c.d = \"}\", e = [ { } ] } # inline\nf = {}\n",
        "a = [ # ]\n  1, # [\n\n  '[', \"]\", [ {b = \"\"\"\n]\"\"\"} ]\n ,\n]\nb = [[], [[]]]\n",
        R"(a = "\b\t\n\f\r\"\\\u00e9\U0001F600\u0000"
b = "é	😀"
c = 'C:\x\'
d = ''
e = ""
)",
        R"(a = """

x \
   
	 y"""""
b = '''
''x''''
c = """"""
d = ''''''
e = '''a\
b'''
f = """a\""""
)",
        R"(a = 1979-05-27 07:32:00 # x
b = 1979-05-27
c = 07:32:00.5
d = 1979-05-27T07:32:00-08:00
e = 1979-05-27 07:32:00.25Z
f = [1979-05-27 07:32:00]
g = 1979-05-27 # 07:32:00
)",
        "a = +1.5e-3\nb = 0xFF_FF\nc = inf\nd = -nan\ne = true\nf = 1_000\n",
        " \t[a]\t \n\t x\t=\t1\t\n # y\n[b] # z\n",
    };
    for (const auto& body : bodies) {
        const auto withReturns = std::regex_replace(body, std::regex("\n"), "\r\n");
        for (const auto& bytes : {body, withReturns, "\xEF\xBB\xBF" + body, body + "\n#é"})
            EXPECT_TRUE(agrees(bytes)) << bytes << toml::parse(bytes).error();
    }
}

/// Writes documents of every construct, with blanks and comments wherever they may stand.
class Generator {
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    std::size_t below(std::size_t count) { return m_random() % count; }

    std::string document() {
        m_newline = pick({"\n", "\r\n"});
        std::string text = pick({"", "", "\xEF\xBB\xBF"}) + lines();
        for (auto tables = below(5); tables > 0; --tables) {
            const auto name = key();
            const bool isArray = below(2) == 0;
            for (auto count = isArray ? 1 + below(3) : 1; count > 0; --count) {
                text += blanks() + (isArray ? "[[" : "[") + blanks() + name + blanks();
                text += (isArray ? "]]" : "]") + lineEnd() + lines();
                if (below(3) == 0)
                    text += "[" + name + ".'s u b']" + lineEnd() + lines();
            }
        }
        if (below(3) == 0 && text.ends_with(m_newline))
            text.resize(text.size() - m_newline.size());
        return text;
    }

private:
    std::string pick(std::initializer_list<const char*> choices) {
        return choices.begin()[below(choices.size())];
    }
    std::string blanks() { return pick({"", "", " ", "\t "}); }
    std::string lineEnd() { return blanks() + pick({"", "", "# é [", "#\"", "# '''"}) + m_newline; }
    std::string lines() {
        std::string text;
        for (auto count = below(4); count > 0; --count) {
            text += below(3) == 0 ? lineEnd() : "";
            text += blanks() + key() + blanks() + "=" + blanks() + value(0) + lineEnd();
        }
        return text;
    }
    std::string key() {
        std::string text;
        do {
            const auto number = std::to_string(++m_count);
            text += text.empty() ? "" : blanks() + "." + blanks();
            const auto open = pick({"k", "_-", "0", "'#.", "'[\"é", "\"]=", "\"\\\"\\u00e9"});
            text += open + number + (open[0] == '\'' || open[0] == '"' ? open.substr(0, 1) : "");
        } while (below(3) == 0);
        return text;
    }
    /// What may stand between the elements of an array.
    std::string between() {
        return below(3) == 0 ? pick({"# ]}\"'", "#", ""}) + m_newline + blanks() : blanks();
    }
    std::string string() {
        const auto quotes = pick({"\"", "'", "\"\"\"", "'''"});
        const bool isBasic = quotes[0] == '"';
        std::string text = quotes;
        for (auto count = below(5); count > 0; --count) {
            text += pick({"a", " ", "#", "]", "{", "é", "😀", "\t", "="});
            text += isBasic ? pick({"'", "\\\"", "\\\\", "\\u00E9", "\\n"}) : pick({"\"", "\\"});
            if (quotes.size() == 1)
                continue;
            text += pick({"'x", "\"\"x", ""}) + (below(2) == 0 ? m_newline : "");
            text += isBasic && below(3) == 0 ? "\\ " + m_newline + m_newline + "\t" : "";
        }
        return text + quotes;
    }
    std::string value(int depth) {
        const auto kind = below(depth < 3 ? 5 : 3);
        if (kind == 0)
            return pick({"1", "-0.5e9", "0xfF", "inf", "true", "1979-05-27", "07:32:00",
                         "1979-05-27 07:32:00", "1979-05-27T07:32:00.5-07:00"});
        if (kind < 3)
            return string();
        std::string text = kind == 3 ? "[" + between() : "{" + blanks();
        for (auto count = below(4); count > 0; --count) {
            const std::string comma = count > 1 ? "," : "";
            text += kind == 3
                        ? value(depth + 1) + between() + comma + between()
                        : key() + blanks() + "=" + blanks() + value(depth + 1) + comma + blanks();
        }
        return text + (kind == 3 ? "]" : "}");
    }

    std::mt19937 m_random;
    std::string m_newline;
    int m_count = 0;
};

TEST(TOMLAgreement, HoldsForGeneratedFilesAndForDamagedOnes) {
    int accepted = 0;
    int acceptedDamaged = 0;
    for (unsigned seed = 0; seed < 1500 && !HasFailure(); ++seed) {
        Generator generator(seed);
        auto bytes = generator.document();
        accepted += agrees(bytes) ? 1 : 0;
        if (bytes.empty())
            continue;
        constexpr std::string_view damage = "\"'[]{}.=,# \n\r\\a1\xC3";
        bytes[generator.below(bytes.size())] = damage[generator.below(damage.size())];
        acceptedDamaged += agrees(bytes) ? 1 : 0;
    }
    EXPECT_GT(accepted, 1400);
    EXPECT_GT(acceptedDamaged, 300);
}

} // namespace
} // namespace wendlow
