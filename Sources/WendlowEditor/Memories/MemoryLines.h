#pragma once

#include "Floor/MemoryDetails.h"
#include "KeyedListModel.h"
#include "Model/EditorMemory.h"

#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>
#include <string>
#include <vector>

namespace wendlow {

/// A line of a list of memories: a memory, or the head of a group of them.
struct MemoryLine {
    std::string id; ///< begins with "m:" for a memory, and otherwise for a head
    bool head = false;
    std::string title; ///< for a head its status
    std::string scopeID;
    EditorDate day;
    std::size_t count = 0; ///< of a head's group
    bool open = false;     ///< shows its why and body, or its group
    bool lastOfGroup = false;
    std::string facts; ///< of a memory that is open: where it is filed, and its filters
    std::optional<EditorMemoryDetail> detail; ///< nothing until it is known
    bool stale = false;                       ///< the detail is from before a change of the store
    bool missing = false;                     ///< the detail was asked for, and nothing came

    bool operator==(const MemoryLine&) const = default;

    static MemoryLine of(const EditorMemoryHit& hit);
    static MemoryLine headOf(std::string id, std::string title, std::size_t count);
    /// Shows its why and body, and its filters: those of `keyOrder` in its order, then the rest.
    void unfold(const EditorMemoryHit& hit, const std::vector<std::string>& keyOrder);
    /// The keys of `keyOrder` that the memory has, then its others, with their values.
    static std::vector<std::pair<std::string, std::string>>
    orderedFilters(const EditorMemory& memory, const std::vector<std::string>& keyOrder);
    /// Valid as long as `id` is.
    std::string_view memoryID() const;
};

/// The lines of a list of memories. What a line showed of its memory's why and body it keeps until
/// newer words are known, so that a refresh does not empty it. UI thread.
class MemoryLines final : public KeyedListModel<MemoryLine> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The lists make their lines.")

public:
    enum Role {
        HeadRole = Qt::UserRole + 1,
        TitleRole, ///< plain, one line
        TitleMarkupRole,
        SublineRole, ///< plain, one line; empty until it is known
        SublineMarkupRole,
        DayRole,
        CountRole,
        OpenRole,
        LastRole, ///< of its group
        TipRole,
        FactsRole,
        WhyRole,      ///< markup, all lines
        WhyTextRole,  ///< plain, for a screen reader
        BodyRole,     ///< markup, all lines
        BodyTextRole, ///< plain, for a screen reader
        KnownRole,    ///< whether why and body are known
        StaleRole,    ///< what is known is from before a change of the store
        MissingRole,  ///< why and body could not be had
    };
    using Today = std::function<EditorDate()>;

    explicit MemoryLines(Today today) : m_today(std::move(today)) {}

    /// `term`: what the words are marked for.
    void show(std::vector<MemoryLine> lines, const MemoryDetails& details, const std::string& term);
    /// Shows these memories behind the lines that are there, which are not looked at. The term
    /// stays.
    void append(std::vector<MemoryLine> lines, const MemoryDetails& details);
    /// Shows this in place of the line of this index, of the same memory.
    void change(int index, MemoryLine line, const MemoryDetails& details);
    /// The whole memory of a line, to be copied; empty where its words are not known.
    Q_INVOKABLE QString textOf(int index) const;
    Q_INVOKABLE QString textWithWhy(int index) const;
    /// Of the memory; empty for a head.
    Q_INVOKABLE QString idOf(int index) const;
    /// Takes over what has come to be known, or is known no more.
    void learn(const MemoryDetails& details);

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    /// Gives a line its why and body: those that are known, else those of the line before it.
    static void fill(MemoryLine& line, const MemoryLine* before, const MemoryDetails& details);
    /// Null: there is none, or its words are not known.
    const MemoryLine* known(int index) const;
    static bool isUpToDate(const MemoryLine& line, const MemoryDetails& details);
    void noteUnknown(int from);
    std::string subline(const MemoryLine& line) const;

    const Today m_today;
    std::string m_term;
    std::vector<int> m_unknown; ///< the lines whose why and body are to come, or to come anew
    std::size_t m_known = 0;    ///< how many details there were
};

} // namespace wendlow
