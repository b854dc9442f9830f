// Every census against the plain way of counting it: one question for each panel, asked of every
// document, with that panel's own pick left out.

#include "Fill/Content.h"
#include "FilterText.h"
#include "ScopePath.h"
#include "TemporaryRooms.h"

#include <map>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::TemporaryRooms;
using Ask = ReadCase::TextBrowse;
using Counts = std::map<std::string, std::int64_t>;

bool matches(const TextBrowseRow& row, const Ask& ask) {
    std::map<std::string, bool> picked;
    for (const FilterPair& pick : ask.filters)
        picked[pick.key] |= std::ranges::find(row.filters, pick) != row.filters.end();
    return (!ask.type || row.type == *ask.type) && ScopePath::matches(row.scope, ask.scopes) &&
           std::ranges::all_of(picked, [](const auto& key) { return key.second; });
}

std::string spelled(const FilterKeyCensus& key, const FilterValueCount& value) {
    return key.key + "=" + std::to_string(value.value.index()) + FilterText::printed(value.value);
}

/// All counts of an answer by panel and name; those of nothing are left out.
Counts told(const TextBrowseAnswer& answer) {
    Counts counts{{"total", answer.total}};
    for (const NameCount& type : answer.byType)
        counts["type " + type.name] = type.count;
    for (const NameCount& scope : answer.byScope)
        counts["scope " + scope.name] = scope.count;
    for (const FilterKeyCensus& key : answer.byFilter) {
        counts["key " + key.key] = key.count;
        for (const FilterValueCount& value : key.values)
            counts[spelled(key, value)] = value.count;
    }
    std::erase_if(counts, [](const auto& count) { return count.second == 0; });
    return counts;
}

Counts counted(const std::vector<TextBrowseRow>& rows, const Ask& ask) {
    Counts counts;
    Ask anyType = ask;
    anyType.type.reset();
    Ask anyScope = ask;
    anyScope.scopes.clear();
    for (const TextBrowseRow& row : rows) {
        if (matches(row, ask))
            ++counts["total"];
        if (matches(row, anyType))
            ++counts["type " + row.type];
        if (matches(row, anyScope))
            ++counts["scope " + row.scope];
        for (const FilterPair& filter : row.filters) {
            Ask anyValue = ask;
            std::erase_if(anyValue.filters,
                          [&](const auto& pick) { return pick.key == filter.key; });
            if (!matches(row, anyValue))
                continue;
            ++counts["key " + filter.key];
            ++counts[spelled({filter.key, 0, {}}, {filter.value, 0})];
        }
    }
    return counts;
}

TextBrowseAnswer browse(TemporaryRooms& rooms, const Ask& ask) {
    return std::get<AnswerCase::TextBrowse>(SearchRoom(rooms->documents()).answer(ask))._0;
}

TEST(BrowseCensus, CountsLikeThePlainWay) {
    TemporaryRooms rooms;
    ASSERT_TRUE(rooms->fill(FillSize::day).has_value());
    Content content("asks");
    int withRows = 0;
    for (int round = 0; round < 300; ++round) {
        constexpr std::string_view terms[] = {"", "", "ba", "person", "the index", "was"};
        Ask ask{.term = std::string(content.pick(terms)),
                .scopes = {},
                .limit = 1000,
                .kind = "memory",
                .filters = {}};
        const auto searched = browse(rooms, ask).rows;
        if (searched.empty())
            continue;
        // What is picked is taken from rows that are there.
        const auto any = [&]() -> const TextBrowseRow& {
            return searched[content.below(searched.size())];
        };
        if (content.oneIn(3))
            ask.type = any().type;
        for (auto picks = content.below(3); picks > 0; --picks)
            ask.scopes.push_back(any().scope);
        for (auto picks = content.below(5); picks > 0; --picks)
            if (const TextBrowseRow& row = any(); !row.filters.empty())
                ask.filters.push_back(row.filters[content.below(row.filters.size())]);
        const TextBrowseAnswer answer = browse(rooms, ask);
        Counts plain = counted(searched, ask);
        ASSERT_EQ(told(answer), plain) << *ask.term << " round " << round;
        EXPECT_EQ(std::ssize(answer.rows), plain["total"]);
        withRows += answer.rows.empty() ? 0 : 1;
    }
    EXPECT_GT(withRows, 100);
}

TEST(BrowseCensus, HoldsThousandsOfScopesAndHundredsOfKeys) {
    TemporaryRooms rooms;
    Transaction transaction(rooms->documents().database());
    for (int place = 0; place < 5000; ++place)
        rooms->documents().put({.id = std::to_string(place),
                                .type = "note",
                                .scope = fmt::format("/s{}/t", place),
                                .title = "one of many",
                                .filters = {{fmt::format("k{}", place % 300),
                                             FilterValue(static_cast<double>(place))}}});
    transaction.commit();
    Ask ask{.term = "many", .scopes = {}, .filters = {}};
    for (int key = 0; key < 299; ++key) // every key but one, which nothing can satisfy
        ask.filters.push_back({fmt::format("k{}", key), FilterValue(static_cast<double>(key))});
    EXPECT_EQ(browse(rooms, ask).total, 0);
    ask.filters.resize(1);
    const auto one = browse(rooms, ask);
    EXPECT_EQ(one.total, 1);
    EXPECT_EQ(one.byFilter.at(0).values.size(), 17U); // those beside the picked one
    ask.filters.clear();
    const auto all = browse(rooms, ask);
    EXPECT_EQ(all.byScope.size(), 5000U);
    EXPECT_EQ(all.byFilter.size(), 300U);
    EXPECT_EQ(all.byFilter.front().key, "k0");
    EXPECT_EQ(std::ranges::count(rooms.note(R"({"scopeBoard":{}})"), '{'), 2 + 10'001 + 5'000);
}

TEST(BrowseCensus, RanksATitleBeforeAReasonBeforeABody) {
    TemporaryRooms rooms;
    const auto put = [&](const char* id, const char* title, const char* why, const char* body) {
        rooms->documents().put(
            {.id = id, .type = "note", .title = title, .why = why, .body = body});
    };
    put("title", "Herons wade", "Seen at dawn", "Nothing more to say");
    put("why", "Birds seen", "Herons came back", "Nothing more to say");
    put("body", "Birds seen", "Seen at dawn", "Herons, it was said");
    const auto rows = browse(rooms, {.term = "herons", .scopes = {}, .filters = {}}).rows;
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].id + " " + rows[1].id + " " + rows[2].id, "title why body");
    EXPECT_EQ(rows[0].score, 1);
    EXPECT_GT(rows[1].score, rows[2].score);
    EXPECT_GT(rows[2].score, 0);
}

} // namespace
} // namespace wendlow
