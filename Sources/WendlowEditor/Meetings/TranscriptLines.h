#pragma once

#include "Model/EditorMeeting.h"

#include <QAbstractListModel>
#include <QtQmlIntegration/qqmlintegration.h>

#include <cstdint>
#include <set>
#include <vector>

namespace wendlow {

/// The lines of a transcript, for its list. A meeting of a day has tens of thousands: nothing is
/// worked out of a line before it is in sight, and a transcript that is read again is taken over by
/// what has changed in it, so that a line that goes moves none above it. UI thread.
class TranscriptLines final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the meetings makes it.")

public:
    using Line = EditorTranscript::Line;
    using Rows = std::set<std::int64_t>;

    enum Role {
        SpeakerRole = Qt::UserRole + 1,
        WordsRole,
        ErasingRole, ///< it is about to be deleted
    };

    explicit TranscriptLines(QObject* parent) : QAbstractListModel(parent) {}

    /// Another transcript.
    void open(std::vector<Line> lines);
    /// The same, as it reads now.
    void refresh(std::vector<Line> lines);
    void remove(std::int64_t id);
    /// These are about to be deleted, and no others.
    void setErasing(Rows ids);

    bool holds(int index) const { return index >= 0 && index < rowCount(); }
    const Line& line(int index) const { return m_lines[static_cast<std::size_t>(index)]; }
    bool isErasing(std::int64_t id) const { return m_erasing.contains(id); }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    using Ids = std::vector<std::int64_t>;

    void removeUnless(const Ids& sortedIds);
    void insertMissing(std::vector<Line>& lines);

    std::vector<Line> m_lines;
    Rows m_erasing;
};

} // namespace wendlow
