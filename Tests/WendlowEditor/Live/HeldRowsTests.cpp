#include "Live/BrowseWire.h"
#include "Live/TileWindow.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

TEST(BrowseWire, takesHeldRowsOnlyWhereThePageStillSaysTheSame) {
    TextBrowseAnswer page;
    const TextBrowseRow note{.id = "a", .type = "note", .scope = "/", .title = "T", .filters = {}};
    page.rows.assign(3, note);
    page.rows[1].filters = {{"k", FilterValue(2.0)}, {"l", FilterValue("x")}};
    const EditorAsk ask{.term = {}};
    const EditorRows held = BrowseWire::settled(page, ask).rows;
    page.rows.push_back(note);
    EXPECT_EQ(&BrowseWire::settled(page, ask, held).rows[2], &held[2])
        << "shared, and gone on from";
    EXPECT_EQ(held.size(), 3U);
    using Change = std::function<void(TextBrowseRow&)>;
    for (const Change& change : std::initializer_list<Change>{
             [](auto& row) { row.id = "z"; },
             [](auto& row) { row.type = "z"; },
             [](auto& row) { row.scope = "/z"; },
             [](auto& row) { row.title = "z"; },
             [](auto& row) { row.at = 9; },
             [](auto& row) { row.score = 9; },
             [](auto& row) { row.filters[0].value = FilterValue("2"); },
             [](auto& row) { row.filters[1].value = FilterValue("y"); },
             [](auto& row) { row.filters[1] = row.filters[0]; },
             [](auto& row) { std::swap(row.filters[0], row.filters[1]); },
             [](auto& row) { row.filters.clear(); },
         }) {
        TextBrowseAnswer changed = page;
        change(changed.rows[1]);
        EXPECT_EQ(BrowseWire::settled(changed, ask, held), BrowseWire::settled(changed, ask));
    }
    page.rows.resize(2);
    EXPECT_EQ(BrowseWire::settled(page, ask, held), BrowseWire::settled(page, ask));
}

TEST(EditorRows, AreSharedUntilTwoGoOnFromOnePlace) {
    EditorRows page(EditorMemoryHits(2));
    EditorRows one = page, other = page;
    one.push_back({.memory = {.id = "one", .type = {}, .title = {}}, .scopeID = {}});
    other.push_back({.memory = {.id = "other", .type = {}, .title = {}}, .scopeID = {}});
    EXPECT_EQ(page.size(), 2U);
    EXPECT_EQ(&page[0], &one[0]);
    EXPECT_EQ(one[2].memory.id + other[2].memory.id, "oneother");
    EXPECT_TRUE(one.beginWith(page) && other.beginWith(page));
    EXPECT_FALSE(one == other || page.beginWith(one) || one.beginWith(other));
    EXPECT_EQ(std::ranges::distance(EditorRows()), 0);
}

TEST(TileWindow, keepsTheLastSixHundredToArrive) {
    TileWindow window;
    for (int key = 0; key < 600; ++key)
        window.remember(key, {});
    window.remember(0, {.image = "again"});
    window.remember(600, {});
    EXPECT_EQ(window.tiles().size(), 600U);
    EXPECT_FALSE(window.holds(0));
    EXPECT_TRUE(window.holds(1));
    // Large ones are fewer.
    const std::string large(TileWindow::mostBytes / 4, 'x');
    for (int key = 601; key < 607; ++key)
        window.remember(key, {.image = large});
    window.remember(606, {.image = large});
    EXPECT_EQ(window.tiles().size(), 4U);
    EXPECT_TRUE(window.holds(603) && !window.holds(602));
}

} // namespace
} // namespace wendlow
