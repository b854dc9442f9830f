#pragma once

#include "Memories/FilterBarModel.h"
#include "Seeded/SeededQuery.h"

#include <QObject>
#include <QVariantList>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace wendlow {

/// A filter bar over made-up answers, which follow what is picked on it. UI thread.
class FiltersBenchCase final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The bench makes it.")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(wendlow::FilterBarModel* bar READ bar CONSTANT)
    /// What is asked for now, in words.
    Q_PROPERTY(QString asked READ asked NOTIFY changed)

public:
    using Answer = std::function<EditorAnswer(const EditorAsk&)>;

    FiltersBenchCase(const char* title, EditorAsk ask, Answer answer);

    QString title() const { return m_title; }
    FilterBarModel* bar() { return &m_bar; }
    QString asked() const;

Q_SIGNALS:
    void changed();

private:
    void take(EditorAsk ask);

    const QString m_title;
    const Answer m_answer;
    EditorAsk m_ask;
    std::int64_t m_total = 0;
    FilterBarModel m_bar{[this](EditorAsk ask) { take(std::move(ask)); }};
};

/// The filter bar in each of its states, one below the other. UI thread.
class FiltersBenchModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it and hands it to the window.")
    /// A `FiltersBenchCase` each.
    Q_PROPERTY(QVariantList cases READ cases CONSTANT)

public:
    FiltersBenchModel();

    QVariantList cases() const;

private:
    FilterBarModel& add(const char* title, EditorAsk ask, FiltersBenchCase::Answer answer);

    const SeededQuery m_world;
    std::vector<std::unique_ptr<FiltersBenchCase>> m_cases;
};

} // namespace wendlow
