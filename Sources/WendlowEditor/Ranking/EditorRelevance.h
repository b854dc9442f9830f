#pragma once

#include "Model/EditorAsk.h"
#include "Model/EditorMemory.h"
#include "Ranking/EditorBM25.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// How well memories meet a term: by the words of title, why and body. Stands in for what the
/// daemon does for real data. Immutable once built; any thread.
class EditorRelevance {
public:
    explicit EditorRelevance(const EditorMemoryHits& corpus);

    /// By the memory's id, only what met a word; not normalised.
    std::map<std::string, double, std::less<>> scores(std::string_view term) const;

private:
    std::optional<EditorBM25> m_index;
    std::vector<std::string> m_ids; ///< as in the index
};

/// The sort of an ask that leaves it open.
EditorMemorySort defaulting(std::optional<EditorMemorySort> sort, bool hasQuery);

/// The same rows in this order. By relevance each gets the share of its score in the best one's;
/// without a word to go by, the newest come first and scores stay.
EditorMemoryHits ordered(EditorMemoryHits hits, EditorMemorySort by, std::string_view term,
                         const EditorRelevance& corpus);

} // namespace wendlow
