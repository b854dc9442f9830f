#include "FilterText.h"
#include "TemporaryRooms.h"

#include <climits>

#include <fmt/ranges.h>
#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::TemporaryRooms;

/// What a person would read off an answer.
struct Seen {
    std::string rows;
    std::string types;
    std::string scopes;
    std::string filters;
    std::string kinds;
};

TextBrowseAnswer browse(TemporaryRooms& rooms, std::string_view ask) {
    const auto json = rooms.read(fmt::format(R"({{"textBrowse":{{{}}}}})", ask));
    return std::get<AnswerCase::TextBrowse>(WireCodec::decodeResponse(json).value())._0;
}

std::string rowsOf(const TextBrowseAnswer& answer) {
    std::vector<std::string> ids;
    for (const TextBrowseRow& row : answer.rows)
        ids.push_back(row.id);
    return fmt::format("{}/{}{} {}", fmt::join(ids, " "), answer.total,
                       answer.narrowed ? " narrowed" : "", answer.order.value_or("-"));
}

template<class Counts> std::string named(const Counts& counts) {
    std::vector<std::string> parts;
    for (const auto& entry : counts)
        if constexpr (requires { entry.kind; })
            parts.push_back(fmt::format("{} {}", entry.kind, entry.count));
        else
            parts.push_back(fmt::format("{} {}", entry.name, entry.count));
    return fmt::format("{}", fmt::join(parts, ", "));
}

std::string filtersOf(const TextBrowseAnswer& answer) {
    std::vector<std::string> parts;
    for (const FilterKeyCensus& key : answer.byFilter) {
        std::string part = fmt::format("{} {}:", key.key, key.count);
        for (const FilterValueCount& value : key.values)
            part += fmt::format(" {} {}", FilterText::printed(value.value), value.count);
        parts.push_back(part);
    }
    return fmt::format("{}", fmt::join(parts, "; "));
}

class TextBrowse : public ::testing::Test {
protected:
    TextBrowse() {
        double at = 1'795'000'000;
        const auto put = [&](Document document) {
            document.at = ++at;
            rooms->documents().put(document);
        };
        const auto text = [](const char* value) { return FilterValue(std::string(value)); };
        const auto memory = [&](const char* id, const char* scope, const char* title,
                                const char* body, std::vector<FilterPair> filters) {
            put({.id = id,
                 .type = *id == 'n' ? "note" : "fact",
                 .scope = scope,
                 .title = title,
                 .body = body,
                 .filters = std::move(filters)});
        };
        memory("n1", "/a", "Backup runs at night", "Before the index.",
               {{"area", text("storage")}, {"week", FilterValue(3.0)}});
        memory("n2", "/a/b", "Index of names", "A backup of a backup keeps the backup.",
               {{"area", text("search")}});
        memory("f1", "/a", "Keep two backups", "One copy was overwritten.",
               {{"area", text("storage")}, {"week", text("3")}});
        memory("f2", "/ab", "Füße und Straße", "naïve café", {{"done", FilterValue(true)}});
        put({.kind = DocumentKind::moment,
             .id = "41",
             .type = "moment",
             .scope = "/a",
             .title = "Terminal",
             .body = "verified backup: 2904 notes,\n12 scopes",
             .app = "org.term",
             .files = {"/tmp/x"},
             .fileCount = 3,
             .framed = true});
        put({.kind = DocumentKind::meeting,
             .id = "meeting:zoom:9",
             .type = "meeting",
             .scope = "/",
             .title = "Backup and restore",
             .body = "Mara: we need a second drive"});
    }

    TemporaryRooms rooms;
};

TEST_F(TextBrowse, CountsForEachPanelWhatElseCouldBePicked) {
    const struct {
        std::string_view ask;
        Seen seen;
    } rows[] = {
        {R"("kind":"memory")",
         {"f2 f1 n2 n1/4 newest", "fact 2, note 2", "/a 2, /a/b 1, /ab 1",
          "area 3: storage 2 search 1; week 2: 3 1 3 1; done 1: true 1",
          "memory 4, meeting 1, moment 1"}},
        // The rail keeps every type while one is open.
        {R"("kind":"memory","type":"fact","order":"oldest")",
         {"f1 f2/2 oldest", "fact 2, note 2", "/a 1, /ab 1",
          "area 1: storage 1; done 1: true 1; week 1: 3 1", "memory 4, meeting 1, moment 1"}},
        // "/ab" is not in "/a"; the scopes beside the picked one can still be picked.
        {R"("kind":"memory","scopes":["/a"])",
         {"f1 n2 n1/3 narrowed newest", "note 2, fact 1", "/a 2, /a/b 1, /ab 1",
          "area 3: storage 2 search 1; week 2: 3 1 3 1", "memory 3, moment 1, meeting 0"}},
        // One key's values are alternatives, and its own panel keeps them all.
        {R"("kind":"memory","filters":[{"key":"area","value":"storage"}])",
         {"f1 n1/2 narrowed newest", "fact 1, note 1", "/a 2",
          "area 3: storage 2 search 1; week 2: 3 1 3 1", "memory 2, meeting 0, moment 0"}},
        {R"("kind":"memory","filters":[{"key":"nobody","value":"x"},{"key":"area","value":"no"}])",
         {"/0 narrowed newest", "", "", "", "meeting 0, memory 0, moment 0"}},
        // Of several picks each panel leaves out its own alone.
        {R"("kind":"memory","type":"note","scopes":["/a"],"filters":[{"key":"area","value":"storage"},{"key":"area","value":"search"}])",
         {"n2 n1/2 narrowed newest", "note 2, fact 1", "/a 1, /a/b 1",
          "area 2: search 1 storage 1; week 1: 3 1", "memory 3, meeting 0, moment 0"}},
        {R"("kind":"memory","filters":[{"key":"area","value":"storage"},{"key":"week","value":3}])",
         {"n1/1 narrowed newest", "note 1", "/a 1", "week 2: 3 1 3 1; area 1: storage 1",
          "memory 1, meeting 0, moment 0"}},
        {R"("kind":"memory","type":"poem")",
         {"/0 newest", "fact 2, note 2", "", "", "memory 4, meeting 1, moment 1"}},
        {R"("term":"backup","order":"newest")",
         {"meeting:zoom:9 41 f1 n2 n1/5 narrowed newest", "note 2, fact 1, meeting 1, moment 1",
          "/a 3, / 1, /a/b 1", "area 3: storage 2 search 1; week 2: 3 1 3 1",
          "memory 3, meeting 1, moment 1"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.ask);
        const TextBrowseAnswer answer = browse(rooms, row.ask);
        EXPECT_TRUE(answer.ready);
        EXPECT_EQ(rowsOf(answer), row.seen.rows);
        EXPECT_EQ(named(answer.byType), row.seen.types);
        EXPECT_EQ(named(answer.byScope), row.seen.scopes);
        EXPECT_EQ(filtersOf(answer), row.seen.filters);
        EXPECT_EQ(named(answer.byKind), row.seen.kinds);
    }
}

TEST_F(TextBrowse, TakesWhateverIsTypedForWords) {
    const struct {
        std::string_view term;
        std::string_view rows;
    } rows[] = {
        {"bac", "f1 n1 n2/3 narrowed relevance"},
        {"BACKUP  ", "f1 n1 n2/3 narrowed relevance"},
        {"fusse", "/0 narrowed relevance"}, // an accent is no letter, a sharp s is one
        {"fuß", "f2/1 narrowed relevance"},
        {"cafe", "f2/1 narrowed relevance"},
        {"backup zebra", "/0 narrowed relevance"},
        {"backup a", "f1 n1 n2/3 narrowed relevance"},
        {"backup 🚀", "f1 n1 n2/3 narrowed relevance"},
        // Nothing to look for: the answer is that of no term, and says so.
        {"", "f2 f1 n2 n1/4 newest"},
        {"b", "f2 f1 n2 n1/4 newest"},
        {"🚀 — …", "f2 f1 n2 n1/4 newest"},
        // The index's own syntax.
        {R"(\"backup)", "f1 n1 n2/3 narrowed relevance"},
        {"title:backup", "/0 narrowed relevance"},
        {"NEAR(backup, 2)", "/0 narrowed relevance"},
        {"back* OR (", "/0 narrowed relevance"},
        {"-index +backup ^", "n2 n1/2 narrowed relevance"},
        {R"(backup\u0000index)", "n2 n1/2 narrowed relevance"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(rowsOf(browse(rooms, fmt::format(R"("kind":"memory","term":"{}")", row.term))),
                  row.rows)
            << row.term;
}

TEST_F(TextBrowse, PagesWithoutLosingTheTotal) {
    const std::int64_t last = INT64_MAX;
    const struct {
        std::string page;
        std::string_view rows;
    } rows[] = {{R"("limit":2)", "f2 f1/4 newest"},
                {R"("limit":2,"offset":2)", "n2 n1/4 newest"},
                {R"("limit":3,"offset":3)", "n1/4 newest"},
                {R"("limit":0)", "f2/4 newest"},
                {R"("limit":-7,"offset":-7)", "f2/4 newest"},
                {fmt::format(R"("limit":{0},"offset":{0})", last), "/4 newest"},
                {fmt::format(R"("limit":{},"offset":1)", last), "f1 n2 n1/4 newest"},
                {R"("limit":1,"order":"sideways")", "f2/4 newest"},
                {R"("limit":1,"order":"relevance")", "f2/4 newest"}};
    for (const auto& row : rows)
        EXPECT_EQ(rowsOf(browse(rooms, R"("kind":"memory",)" + row.page)), row.rows) << row.page;
    rooms.hold(R"(read textBrowse {"kind":"poem"}
→ failure “poem” is no kind of thing that can be browsed; those are memory, moment and meeting)");
}

TEST_F(TextBrowse, GivesAMomentWhatItsTileNeeds) {
    EXPECT_THAT(
        rooms.read(R"({"textBrowse":{"kind":"moment","term":"verified notes"}})"),
        ::testing::HasSubstr(
            R"("rows":[{"id":"41","type":"moment","scope":"/a","title":"Terminal","at":1795000005,"filters":[],"score":1,"app":"org.term","passage":"verified backup: 2904 notes, 12 scopes","files":["/tmp/x"],"fileCount":3,"framed":true}])"));
}

TEST_F(TextBrowse, ForgetsWhatWasTakenBack) {
    const std::string before = rowsOf(browse(rooms, ""));
    {
        Transaction transaction(rooms->documents().database());
        rooms->documents().put({.id = "x", .type = "note", .title = "backup"});
        rooms->documents().remove("n1");
        EXPECT_NE(rowsOf(browse(rooms, "")), before);
    }
    EXPECT_EQ(rowsOf(browse(rooms, "")), before);
    rooms.reopen();
    EXPECT_EQ(rowsOf(browse(rooms, "")), before);
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
    const auto picking = [&](int keys) {
        std::vector<std::string> picks;
        for (int key = 0; key < keys; ++key)
            picks.push_back(fmt::format(R"({{"key":"k{0}","value":{0}}})", key));
        return browse(rooms, fmt::format(R"("term":"many","filters":[{}])", fmt::join(picks, ",")));
    };
    EXPECT_EQ(picking(299).total, 0); // nothing can satisfy them
    const auto one = picking(1);
    EXPECT_EQ(one.total, 1);
    EXPECT_EQ(one.byFilter.at(0).values.size(), 17U); // those beside the picked one
    const auto all = picking(0);
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
    const auto answer = browse(rooms, R"("term":"herons")");
    ASSERT_EQ(rowsOf(answer), "title why body/3 narrowed relevance");
    EXPECT_EQ(answer.rows[0].score, 1);
    EXPECT_GT(answer.rows[1].score, answer.rows[2].score);
    EXPECT_GT(answer.rows[2].score, 0);
}

} // namespace
} // namespace wendlow
