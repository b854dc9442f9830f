#pragma once

#include "Memories/FilterLists.h"
#include "Model/EditorAnswer.h"

#include <QObject>

#include <functional>
#include <optional>

namespace wendlow {

/// The chips over a list of memories: one for the scope, one for each filter key of the answer; and
/// the panel of the chip that is open. UI thread.
class FilterBarModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the memories makes it.")
    Q_PROPERTY(wendlow::FilterChips* chips READ chips CONSTANT)
    Q_PROPERTY(wendlow::FilterValues* values READ values CONSTANT)
    Q_PROPERTY(bool panelOpen READ panelOpen NOTIFY changed)
    /// What the open panel is of, for a screen reader.
    Q_PROPERTY(QString panelLabel READ panelLabel NOTIFY changed)
    /// The open panel has picks.
    Q_PROPERTY(bool panelPicked READ panelPicked NOTIFY changed)
    /// Any filter has picks.
    Q_PROPERTY(bool picked READ picked NOTIFY changed)
    /// The chips that are not shown; 0 when all are.
    Q_PROPERTY(int moreChips READ moreChips NOTIFY changed)

public:
    using ChangeAsk = std::function<void(EditorAsk)>;

    /// The key of the scope chip's panel. A filter may be called "scope" too.
    static constexpr const char* scopeKey = "/";
    /// A store may have hundreds of keys; the rest are behind a door.
    static constexpr std::size_t chipsShown = 16;

    explicit FilterBarModel(ChangeAsk changeAsk) : m_changeAsk(std::move(changeAsk)) {}

    void show(const EditorAsk& ask, const EditorAnswer& answer);
    void startAfresh();

    /// Opens the panel of this key, or closes it. One is open at most.
    Q_INVOKABLE void togglePanel(const QString& key);
    /// Gives whether one was open.
    Q_INVOKABLE bool closePanel();
    Q_INVOKABLE void toggleValue(int index);
    Q_INVOKABLE void clearPanel();
    Q_INVOKABLE void clearAll();
    Q_INVOKABLE void showAllChips();

    const std::optional<std::string>& openPanel() const { return m_openPanel; }
    FilterChips* chips() { return &m_chips; }
    FilterValues* values() { return &m_values; }
    bool panelOpen() const { return m_openPanel.has_value(); }
    QString panelLabel() const;
    bool panelPicked() const;
    bool picked() const { return !m_ask.filters.empty(); }
    int moreChips() const { return m_moreChips; }

Q_SIGNALS:
    void changed();

private:
    void rebuild();
    void showPanel();
    std::size_t picksOf(const std::string& key) const;
    const std::vector<EditorCount>& panelRows() const;
    void change(EditorAsk ask);

    const ChangeAsk m_changeAsk;
    FilterChips m_chips;
    FilterValues m_values;
    EditorAsk m_ask{.term = {}};
    // Of the last answer that had any: they stay while a refresh runs.
    std::vector<EditorCount> m_scopes;
    std::vector<EditorCount> m_keys;
    std::map<std::string, std::vector<EditorCount>> m_counts;
    std::optional<std::string> m_openPanel;
    bool m_showAll = false;
    int m_moreChips = 0;
};

} // namespace wendlow
