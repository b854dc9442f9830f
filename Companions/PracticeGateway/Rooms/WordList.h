#pragma once

#include <algorithm>
#include <cstddef>
#include <expected>
#include <iterator>
#include <ranges>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Options that are words with commas between them.
namespace wendlow::WordList {

template<class Value> using Known = std::pair<std::string_view, Value>;

/// What the words stand for, in their order. The unknown word is the error.
template<class Value, std::size_t count>
std::expected<std::vector<Value>, std::string> values(std::string_view words,
                                                      const Known<Value> (&known)[count]) {
    std::vector<Value> values;
    for (const auto piece : std::views::split(words, ',')) {
        const std::string_view word(piece.begin(), piece.end());
        const auto found = std::ranges::find(known, word, &Known<Value>::first);
        if (found == std::end(known))
            return std::unexpected(std::string(word));
        values.push_back(found->second);
    }
    return values;
}

/// A record whose switches of these words are on. The unknown word is the error.
template<class Record, std::size_t count>
std::expected<Record, std::string> switches(std::string_view words,
                                            const Known<bool Record::*> (&known)[count]) {
    const auto chosen = values(words, known);
    if (!chosen)
        return std::unexpected(chosen.error());
    Record record;
    for (bool Record::* const way : *chosen)
        record.*way = true;
    return record;
}

} // namespace wendlow::WordList
