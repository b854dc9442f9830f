#include "StatsBarList.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace wendlow {

namespace {

QString letterOf(QString name) {
    if (name.startsWith(u"www."_s))
        name.remove(0, 4);
    const auto letter =
        std::ranges::find_if(name, [](QChar each) { return each.isLetterOrNumber(); });
    return letter == name.end() ? QString() : QString(letter->toUpper());
}

QString cut(const QString& name) {
    constexpr qsizetype longest = 200;
    return name.size() <= longest ? name : name.left(longest) + u'…';
}

} // namespace

QVariant StatsBarList::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto& [id, bar, picture] = row(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return cut(bar.name);
    case FractionRole:
        return std::clamp(bar.fraction, 0.0, 1.0);
    case LabelRole:
        return bar.label;
    case TipRole:
        return bar.fullName + u" · "_s + bar.exact;
    case SpokenRole:
        return cut(bar.fullName) + u", "_s + bar.exact;
    case LetterRole:
        return letterOf(bar.fullName);
    case PictureRole:
        return picture;
    default:
        return {};
    }
}

QHash<int, QByteArray> StatsBarList::roleNames() const {
    return {{NameRole, "name"},      {FractionRole, "fraction"}, {LabelRole, "label"},
            {TipRole, "tip"},        {SpokenRole, "spoken"},     {LetterRole, "letter"},
            {PictureRole, "picture"}};
}

} // namespace wendlow

#include "moc_StatsBarList.cpp"
