#pragma once

#include "Model/TextHash.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wendlow {

/// Ranks documents by how well their words meet those of a query. Immutable once built; any thread.
class EditorBM25 {
public:
    static constexpr double k1 = 1.5;
    static constexpr double b = 0.75;

    using Tokens = std::vector<std::string>;

    /// The index of these documents. Nothing: there is no document, or no word in any.
    static std::optional<EditorBM25> of(std::span<const Tokens> corpus);

    /// One score for each document, in their order. A word that stands twice in the query counts
    /// twice.
    std::vector<double> scores(std::span<const std::string> query) const;

    std::size_t count() const { return m_lengths.size(); }
    double averageLength() const { return m_averageLength; } ///< in words
    /// How telling a word is. Nothing: no document holds it.
    std::optional<double> idf(std::string_view term) const;

private:
    struct Posting {
        std::uint32_t doc;
        std::uint32_t freq;
    };
    struct Term {
        std::vector<Posting> postings;
        double idf = 0;
    };
    using Terms = std::unordered_map<std::string, Term, TextHash, std::equal_to<>>;

    EditorBM25() = default;
    void weigh();

    Terms m_terms;
    std::vector<double> m_lengths;
    double m_averageLength = 0;
};

} // namespace wendlow
