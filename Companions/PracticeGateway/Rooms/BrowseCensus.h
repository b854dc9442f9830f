#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "DocumentFacets.h"
#include "Records/TextBrowseAnswer.h"
#include "Requests/MemoryReads.h"

namespace wendlow {

/// All counts of one browse, in one pass over what the search found.
///
/// A census shows what else could be picked, so each leaves its own pick out: the types are counted
/// over all types, the scopes over all scopes, the values of a filter as if that filter were not
/// set, the kinds over all kinds and types. Everything else that was asked holds.
class BrowseCensus {
public:
    BrowseCensus(const DocumentFacets& facets, const ReadCase::TextBrowse& ask,
                 std::optional<DocumentKind> kind);

    /// Counts a document that holds the words of the ask. True when it is in the answer.
    bool count(const DocumentFacets::Row& row);

    /// Puts the total and the censuses, the largest counts first.
    void report(TextBrowseAnswer& answer) const;

private:
    using Counts = std::vector<std::int64_t>;

    /// The key that is asked, and the pairs that satisfy it.
    struct Pick {
        std::uint32_t key;
        std::vector<std::uint32_t> pairs;
    };

    /// What a set of filters is to the ask: it satisfies all picks, all but one (the number of that
    /// pick), or fewer.
    using Verdict = std::int32_t;
    static constexpr Verdict unknown = -1;
    static constexpr Verdict passes = -2;
    static constexpr Verdict fails = -3;

    Verdict verdict(std::uint32_t set);
    Verdict judge(std::uint32_t set) const;
    std::vector<FilterKeyCensus> filters() const;

    const DocumentFacets& m_facets;
    std::optional<DocumentKind> m_kind;
    bool m_anyType;
    std::uint32_t m_type;
    std::vector<std::uint8_t> m_scopePasses;
    std::vector<Pick> m_picks;
    std::vector<Verdict> m_verdicts;

    std::int64_t m_total = 0;
    std::array<std::int64_t, 3> m_byKind{};
    Counts m_byType;
    Counts m_byScope;
    Counts m_sets;        ///< of documents in the answer
    Counts m_setsLessOne; ///< of documents that only one pick keeps out
};

} // namespace wendlow
