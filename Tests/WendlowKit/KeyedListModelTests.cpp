#include "KeyedListModel.h"

#include <QAbstractItemModelTester>

#include <random>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

struct Row {
    std::string id;
    int value = 0;
    bool operator==(const Row&) const = default;
};

class List final : public KeyedListModel<Row> {
public:
    using KeyedListModel::append;
    using KeyedListModel::change;
    using KeyedListModel::take;
    QVariant data(const QModelIndex& index, int /*role*/) const override {
        return row(index.row()).value;
    }
};

std::vector<Row> rowsOf(std::string_view ids) {
    std::vector<Row> rows;
    for (const char id : ids)
        rows.push_back({.id = std::string(1, id)});
    return rows;
}

TEST(KeyedListModel, TakesOverBySmallestChange) {
    struct Case {
        const char* before;
        const char* after;
        int removed, inserted, moved;
    };
    for (const auto& [before, after, removed, inserted, moved] :
         {Case{"abc", "abc", 0, 0, 0}, Case{"abcdef", "af", 1, 0, 0}, Case{"af", "abcdef", 0, 1, 0},
          Case{"abcdef", "fabcde", 0, 0, 1}, Case{"abcdef", "bcdefa", 0, 0, 2},
          Case{"abc", "xyz", 1, 1, 0}, Case{"abcd", "xbdyc", 1, 2, 1}, Case{"", "ab", 0, 1, 0},
          Case{"ab", "", 1, 0, 0},
          Case{"abcdefghijklmnopqrstuvwxyz", "zyxwvutsrqponmlkjihgfedcba", 1, 1, 0}}) {
        List list;
        const QAbstractItemModelTester tester(&list);
        list.take(rowsOf(before));
        int seen[3] = {};
        QObject::connect(&list, &QAbstractItemModel::rowsRemoved, [&] { ++seen[0]; });
        QObject::connect(&list, &QAbstractItemModel::rowsInserted, [&] { ++seen[1]; });
        QObject::connect(&list, &QAbstractItemModel::rowsMoved, [&] { ++seen[2]; });
        QObject::connect(&list, &QAbstractItemModel::modelReset, [] { FAIL() << "a reset"; });
        list.take(rowsOf(after));
        EXPECT_EQ(list.rows(), rowsOf(after));
        EXPECT_THAT(seen,
                    ::testing::ElementsAre(removed, ::testing::Ge(inserted), ::testing::Le(moved)))
            << before << " to " << after;
    }
}

TEST(KeyedListModel, AnyChangeOfAnyListComesOutRight) {
    std::mt19937 random(7);
    List list;
    const QAbstractItemModelTester tester(&list);
    for (int turn = 0; turn < 300; ++turn) {
        std::vector<Row> wanted;
        for (int id = 0; id < 60; ++id)
            if (random() % 3 != 0)
                wanted.push_back(
                    {.id = std::to_string(id), .value = static_cast<int>(random() % 2)});
        const int swaps = static_cast<int>(random() % 40);
        for (int at = 0; at < swaps && !wanted.empty(); ++at)
            std::swap(wanted[random() % wanted.size()], wanted[random() % wanted.size()]);
        // Who looks at a row keeps looking at it, unless it is gone or the whole list is shuffled.
        const QPersistentModelIndex first(list.index(0));
        const std::string id = first.isValid() ? list.row(0).id : "";
        list.take(wanted);
        ASSERT_EQ(list.rows(), wanted);
        if (first.isValid()) {
            ASSERT_EQ(list.row(first.row()).id, id);
        }
    }
}

TEST(KeyedListModel, GoesOnBehindTheRowsThatAreThere) {
    List list;
    const QAbstractItemModelTester tester(&list);
    list.take(rowsOf("abc"));
    QStringList seen;
    QObject::connect(&list, &QAbstractItemModel::rowsInserted,
                     [&](const QModelIndex&, int first, int last) {
                         seen.append(QStringLiteral("+%1-%2").arg(first).arg(last));
                     });
    QObject::connect(&list, &QAbstractItemModel::dataChanged, [&](const QModelIndex& first) {
        seen.append(QStringLiteral("~%1").arg(first.row()));
    });
    list.append(rowsOf("db"));
    list.append({});
    list.append(rowsOf("e"));
    list.change(1, {.id = "other", .value = 7});
    list.change(1, {.id = "b", .value = 7});
    EXPECT_THAT(seen, ::testing::ElementsAre("+3-4", "+5-5", "~1"));
    // A second row of one id is another row, also where a list is taken over afterwards.
    EXPECT_EQ(list.row(4).id, "b'");
    EXPECT_EQ(list.row(1).id, "b");
    list.take(rowsOf("edcba"));
    list.append(rowsOf("b"));
    EXPECT_EQ(list.row(4).id + list.row(5).id, "ab'");
}

} // namespace
} // namespace wendlow
