#include "Floor/FaceModel.h"

#include "Floor/RowText.h"

#include <utility>

namespace wendlow {

std::vector<RailRow> FaceModel::railRows() const {
    RailRow row;
    row.title = EditorFaces::title(face());
    row.symbol = EditorFaces::symbol(face());
    row.count = railCount();
    row.here = isOpen();
    return {std::move(row)};
}

QString FaceModel::title() const {
    return RowText::plain(EditorFaces::title(face()));
}

void FaceModel::setOpen(bool open) {
    if (std::exchange(m_open, open) != open)
        Q_EMIT openChanged();
}

} // namespace wendlow

#include "moc_FaceModel.cpp"
