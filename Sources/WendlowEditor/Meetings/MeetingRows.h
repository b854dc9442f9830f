#pragma once

#include "KeyedListModel.h"
#include "Model/EditorMeeting.h"

#include <QtQmlIntegration/qqmlintegration.h>

#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// A row of the list of meetings.
struct MeetingRow {
    std::string id; ///< the meeting's
    EditorMeeting meeting;

    bool operator==(const MeetingRow&) const = default;
};

/// The meetings, for their list. UI thread.
class MeetingRows final : public KeyedListModel<MeetingRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the meetings makes it.")

public:
    enum Role {
        TitleRole = Qt::UserRole + 1,
        UnderRole, ///< when it was and who spoke
        CountRole,
        TipRole, ///< all of both lines, where they may be cut
    };

    explicit MeetingRows(QObject* parent) : KeyedListModel(parent) {}

    void show(const std::vector<EditorMeeting>& meetings);
    /// -1: there is none.
    int indexOf(std::string_view id) const;

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace wendlow
