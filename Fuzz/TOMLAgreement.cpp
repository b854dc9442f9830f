#include "TOMLAgreement.h"

#include "Checks.h"
#include "ConfigFile/TOMLText.h"

#include <algorithm>
#include <map>
#include <string>

// It asserts, and without assertions assumes, what damaged files do not keep to.
#undef NDEBUG
#define TOML_ASSERT(condition) static_cast<void>(0)
#define TOML_EXCEPTIONS 0
#include <toml++/toml.h>

namespace wendlow::fuzz {

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
        require(document.has_value(), "refuses what the parser accepts");
        std::size_t count = 0;
        for (const auto& table : document->tables()) {
            const auto* const node = header(table);
            require(node != nullptr && node->is_table(), TOMLText::joined(table.name));
            require(table.name.size() == 0 ||
                        offset(m_bytes, node->source().begin) == table.headerStart,
                    "a header stands elsewhere");
            for (const auto& entry : document->entries(table))
                checkEntry(*node->as_table(), entry);
            count += document->entries(table).size();
        }
        require(count == values(m_root), "another number of values");
    }

private:
    void require(bool holds, std::string_view what) const { fuzz::require(holds, what, m_bytes); }

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
            require(table != nullptr, TOMLText::joined(entry.key));
        }
        const auto found = table->find(entry.key[entry.key.size() - 1]);
        require(found != table->end(), TOMLText::joined(entry.key));
        const auto& [key, node] = *found;
        const auto keyStart = offset(m_bytes, key.source().begin);
        const auto valueStart = entry.valueEnd - entry.raw.size();
        require(entry.key.size() == 1 ? keyStart == entry.keyStart
                                      : keyStart >= entry.keyStart && keyStart < valueStart,
                "a key stands elsewhere");
        require(offset(m_bytes, node.source().begin) == valueStart &&
                    offset(m_bytes, node.source().end) == entry.valueEnd,
                "a value stands elsewhere");
        // Behind a backslash at the end of a line the parser also trims blanks that TOML does not
        // name, such as U+FEFF.
        const bool isTrimmed = entry.raw.starts_with("\"\"\"") && entry.raw.contains('\\') &&
                               std::ranges::any_of(entry.raw, [](char byte) { return byte < 0; });
        require(isTrimmed || entry.text == node.value_exact<std::string_view>(),
                "a string reads otherwise");
    }

    std::string_view m_bytes;
    const toml::table& m_root;
    std::map<std::string, std::size_t> m_arrays;
};

} // namespace

void requireAgreement(std::string_view bytes) {
    if (const auto parsed = toml::parse(bytes))
        Agreement(bytes, parsed.table()).check();
}

} // namespace wendlow::fuzz
