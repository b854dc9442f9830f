#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Document.h"

namespace wendlow {

/// Texts by number and back; a text keeps its number.
class Names {
public:
    static constexpr std::uint32_t none = UINT32_MAX;

    std::uint32_t number(std::string_view text);
    /// `none` for a text that has no number.
    std::uint32_t find(std::string_view text) const;
    const std::string& text(std::uint32_t number) const { return m_texts[number]; }
    std::size_t size() const { return m_texts.size(); }

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    std::vector<std::string> m_texts;
    std::unordered_map<std::string, std::uint32_t, Hash, std::equal_to<>> m_numbers;
};

/// The few figures of every document by which answers are counted, cut and sorted, held in memory
/// so that one pass over a search's hits yields all censuses without touching the tables. The
/// tables are the truth; this is read from them.
class DocumentFacets {
public:
    struct Row {
        double at = 0;
        std::uint32_t type = 0;
        std::uint32_t scope = 0;
        std::uint32_t filters = 0;
        DocumentKind kind = DocumentKind::memory;
        bool present = false;
    };
    /// A key with one value.
    struct Pair {
        std::uint32_t key = 0;
        FilterValue value;
    };

    struct Figures {
        DocumentKind kind;
        std::string_view type;
        std::string_view scope;
        std::string_view filters; ///< as `FilterText` writes them
        double at;
    };
    void set(std::int64_t rowid, const Figures& figures);
    void remove(std::int64_t rowid);

    /// By rowid; places without a document are not `present`.
    std::span<const Row> rows() const { return m_rows; }
    const Row& row(std::int64_t rowid) const { return m_rows[static_cast<std::size_t>(rowid)]; }
    const Names& types() const { return m_types; }
    const Names& scopes() const { return m_scopes; }
    const Names& keys() const { return m_keys; }
    std::span<const Pair> pairs() const { return m_pairs; }
    std::size_t filterSets() const { return m_sets.size(); }
    /// `Names::none` for a pair that no document ever had.
    std::uint32_t findPair(const FilterPair& pair) const;
    /// The pairs of one set of filters, by their numbers.
    std::span<const std::uint32_t> pairsOf(std::uint32_t set) const { return m_sets[set]; }

private:
    std::uint32_t pairNumber(const FilterPair& pair);

    std::vector<Row> m_rows;
    Names m_types;
    Names m_scopes;
    Names m_keys;
    Names m_setTexts;
    Names m_pairTexts;
    std::vector<Pair> m_pairs;
    std::vector<std::vector<std::uint32_t>> m_sets;
};

} // namespace wendlow
