#include "Ranking/EditorBM25.h"

#include <algorithm>
#include <cmath>

namespace wendlow {

namespace {

constexpr double floorShare = 0.25;
/// Below so many documents a word that is common in them must not count for nothing.
constexpr std::size_t smallCorpus = 50;

} // namespace

std::optional<EditorBM25> EditorBM25::of(std::span<const Tokens> corpus) {
    EditorBM25 index;
    index.m_lengths.reserve(corpus.size());
    std::size_t total = 0;
    std::uint32_t doc = 0;
    for (const Tokens& tokens : corpus) {
        for (const std::string& token : tokens) {
            auto& postings = index.m_terms[token].postings;
            if (postings.empty() || postings.back().doc != doc)
                postings.push_back({.doc = doc, .freq = 1});
            else
                ++postings.back().freq;
        }
        total += tokens.size();
        index.m_lengths.push_back(static_cast<double>(tokens.size()));
        ++doc;
    }
    if (total == 0)
        return std::nullopt;
    index.m_averageLength = static_cast<double>(total) / static_cast<double>(corpus.size());
    index.weigh();
    return index;
}

void EditorBM25::weigh() {
    // In the order of the words, so that the sum of so many fractions is the same at every start.
    std::vector<Terms::value_type*> terms;
    terms.reserve(m_terms.size());
    for (auto& term : m_terms)
        terms.push_back(&term);
    std::ranges::sort(terms, {}, [](const auto* term) -> const auto& { return term->first; });

    const auto documents = static_cast<double>(count());
    double sum = 0;
    for (auto* const term : terms) {
        const auto holding = static_cast<double>(term->second.postings.size());
        term->second.idf = std::log(documents - holding + 0.5) - std::log(holding + 0.5);
        sum += term->second.idf;
    }
    const double negativeFloor = floorShare * (sum / static_cast<double>(terms.size()));
    for (auto* const term : terms) {
        double& idf = term->second.idf;
        if (idf < 0)
            idf = negativeFloor;
        if (count() < smallCorpus)
            idf = std::max(idf, floorShare);
    }
}

std::vector<double> EditorBM25::scores(std::span<const std::string> query) const {
    std::vector<double> all(count(), 0);
    for (const std::string& token : query) {
        const auto term = m_terms.find(token);
        if (term == m_terms.end())
            continue;
        for (const Posting& posting : term->second.postings) {
            const double freq = posting.freq;
            const double length = m_lengths[posting.doc] / m_averageLength;
            all[posting.doc] +=
                term->second.idf * ((k1 + 1) * freq) / (k1 * (1 - b + b * length) + freq);
        }
    }
    return all;
}

std::optional<double> EditorBM25::idf(std::string_view term) const {
    const auto found = m_terms.find(term);
    return found == m_terms.end() ? std::nullopt : std::optional(found->second.idf);
}

} // namespace wendlow
