#include "LocalModelsList.h"

namespace wendlow {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QString stateWord(LocalModelsScreen::RowFace::Kind kind) {
    using Kind = LocalModelsScreen::RowFace::Kind;
    switch (kind) {
    case Kind::done:
        return QStringLiteral("done");
    case Kind::present:
        return QStringLiteral("present");
    case Kind::progress:
        return QStringLiteral("progress");
    case Kind::waiting:
        break;
    }
    return QStringLiteral("waiting");
}

} // namespace

QVariant LocalModelsList::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const LocalModelRow& shown = row(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return text(shown.name);
    case LineRole:
        return text(shown.line);
    case StateRole:
        return stateWord(shown.face.kind);
    case FractionRole:
        return shown.fraction.value_or(-1);
    case SpokenRole:
        return text(shown.name + ", " + shown.line);
    default:
        return {};
    }
}

QHash<int, QByteArray> LocalModelsList::roleNames() const {
    return {{NameRole, "name"},
            {LineRole, "line"},
            {StateRole, "state"},
            {FractionRole, "fraction"},
            {SpokenRole, "spoken"}};
}

} // namespace wendlow

#include "moc_LocalModelsList.cpp"
