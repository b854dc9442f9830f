#include "FiltersBenchModel.h"

#include "Floor/EditorWords.h"

#include <QQmlEngine>
#include <QStringList>

#include <utility>

namespace wendlow {

namespace {

EditorAsk ofType(const char* type) {
    EditorAsk ask{.term = {}};
    ask.type = type;
    return ask;
}

/// So many keys with so many values each; the first of all counts most.
EditorAnswer counted(const EditorAsk& ask, int keys, int values, const std::string& stem) {
    EditorAnswer answer;
    answer.ask = ask;
    answer.state = EditorAnswerStateCase::Settled{};
    for (int key = 0; key < keys; ++key) {
        const std::string name = stem + std::to_string(key + 1);
        answer.filterKeyCounts.push_back({.name = name, .count = 40LL * (keys - key)});
        for (int value = 0; value < values; ++value) {
            const std::string label = "value " + std::to_string(value + 1) + " of " + name;
            answer.filterValueCounts[name].push_back(
                {.name = label, .count = values - value, .members = {FilterValue(label)}});
        }
    }
    answer.scopeCounts = {{.name = "/work", .count = 31}, {.name = "/home", .count = 9}};
    answer.total = 40;
    return answer;
}

} // namespace

FiltersBenchCase::FiltersBenchCase(const char* title, EditorAsk ask, Answer answer)
    : m_title(QString::fromUtf8(title)), m_answer(std::move(answer)) {
    QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
    QQmlEngine::setObjectOwnership(&m_bar, QQmlEngine::CppOwnership);
    take(std::move(ask));
}

void FiltersBenchCase::take(EditorAsk ask) {
    m_ask = std::move(ask);
    const EditorAnswer answer = m_answer(m_ask);
    m_total = answer.total;
    m_bar.show(m_ask, answer);
    Q_EMIT changed();
}

QString FiltersBenchCase::asked() const {
    QStringList parts;
    for (const std::string& scope : m_ask.scopes)
        parts.append(QString::fromStdString(scope));
    for (const auto& [key, picks] : m_ask.filters) {
        QStringList values;
        for (const std::string& name : names(picks))
            values.append(QString::fromStdString(name));
        parts.append(QString::fromStdString(key) + QStringLiteral(": ") +
                     values.join(QStringLiteral(" or ")));
    }
    const QString what =
        parts.isEmpty() ? QStringLiteral("Everything") : parts.join(QStringLiteral("; "));
    return QStringLiteral("%1 — %2").arg(what, m_total == 1
                                                   ? QStringLiteral("1 memory")
                                                   : QStringLiteral("%1 memories").arg(m_total));
}

FiltersBenchModel::FiltersBenchModel() : m_world(SeedWorlds::contents(SeedWorld::powerUser)) {
    const auto fromWorld = [this](const EditorAsk& ask) { return m_world.answer(ask); };
    add("As it opens", ofType("decision"), fromWorld);
    add("A panel open", ofType("decision"), fromWorld).togglePanel(QStringLiteral("owner"));
    FilterBarModel& picked = add("Picked in two, a panel open", ofType("ticket"), fromWorld);
    picked.togglePanel(picked.chips()->rowCount() > 2
                           ? QString::fromStdString(picked.chips()->row(2).id)
                           : QString::fromUtf8(FilterBarModel::scopeKey));
    picked.toggleValue(0);
    picked.togglePanel(QString::fromStdString(picked.chips()->row(1).id));
    picked.toggleValue(0);
    picked.toggleValue(1);
    add("Nothing to filter by", EditorAsk{.term = {}},
        [](const EditorAsk& ask) { return counted(ask, 0, 0, ""); });
    add("Names that do not fit", EditorAsk{.term = {}}, [](const EditorAsk& ask) {
        return counted(ask, 5, 3, "a key whose name goes on for longer than a chip is wide ");
    });
    FilterBarModel& many = add("More values than a panel shows", EditorAsk{.term = {}},
                               [](const EditorAsk& ask) { return counted(ask, 3, 200, "key "); });
    many.togglePanel(QStringLiteral("key 1"));
    add("More keys than are shown", EditorAsk{.term = {}},
        [](const EditorAsk& ask) { return counted(ask, 60, 2, "key "); });
    add("All of them", EditorAsk{.term = {}}, [](const EditorAsk& ask) {
        return counted(ask, 60, 2, "key ");
    }).showAllChips();
}

FilterBarModel& FiltersBenchModel::add(const char* title, EditorAsk ask,
                                       FiltersBenchCase::Answer answer) {
    return *m_cases
                .emplace_back(
                    std::make_unique<FiltersBenchCase>(title, std::move(ask), std::move(answer)))
                ->bar();
}

QVariantList FiltersBenchModel::cases() const {
    QVariantList list;
    for (const auto& each : m_cases)
        list.append(QVariant::fromValue(each.get()));
    return list;
}

} // namespace wendlow

#include "moc_FiltersBenchModel.cpp"
