#include "Shell/RailModel.h"

#include "Floor/RowText.h"
#include "Say.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

/// The arrows walk these.
bool isStop(const RailRow& row) {
    return row.kind == RailRow::Kind::place || row.kind == RailRow::Kind::face;
}

} // namespace

void RailModel::show(std::vector<std::pair<EditorFace, std::vector<RailRow>>> faces) {
    m_faces = std::move(faces);
    rebuild();
}

void RailModel::rebuild() {
    std::vector<RailRow> rows;
    for (const auto& [face, ofFace] : m_faces)
        add(rows, face, ofFace);
    take(std::move(rows));
    Q_EMIT hereChanged();
}

void RailModel::add(std::vector<RailRow>& rows, EditorFace face,
                    std::vector<RailRow> ofFace) const {
    const bool expanded = m_expanded.contains(face);
    const auto begin = rows.size();
    std::size_t places = 0;
    bool hereUnseen = false;
    for (RailRow& row : ofFace) {
        if (row.kind == RailRow::Kind::place && ++places > placesShown && !expanded) {
            hereUnseen = hereUnseen || row.here;
            continue;
        }
        row.apart = row.kind == RailRow::Kind::face && !rows.empty() &&
                    rows.back().kind != RailRow::Kind::face;
        rows.push_back(std::move(row));
    }
    // An open place that is not in sight is somewhere on its face.
    if (hereUnseen)
        rows[begin].here = true;
    if (places > placesShown && !expanded) {
        RailRow more;
        more.kind = RailRow::Kind::more;
        const auto unseen = static_cast<std::int64_t>(places - placesShown);
        more.title = say.plural(unseen, "{} more", "{} more", unseen).toStdString();
        rows.push_back(std::move(more));
    }
    for (auto at = begin; at < rows.size(); ++at) {
        RailRow& row = rows[at];
        row.face = face;
        row.id =
            fmt::format("{}/{}/{}", EditorFaces::text(face), static_cast<int>(row.kind), row.place);
    }
}

void RailModel::move(int by) {
    std::vector<const RailRow*> stops;
    for (const RailRow& row : rows())
        if (isStop(row))
            stops.push_back(&row);
    // A face as a whole is no stop where its places are, so that from there the walk begins anew.
    const auto here =
        std::ranges::find(stops, true, [](const RailRow* stop) { return stop->here; });
    const auto last = std::ssize(stops) - 1;
    const auto next =
        here == stops.end() ? 0 : std::clamp<std::ptrdiff_t>(here - stops.begin() + by, 0, last);
    if (last < 0)
        return;
    const RailRow chosen = *stops[static_cast<std::size_t>(next)];
    m_actions.open(chosen.face, chosen.place);
}

bool RailModel::arrowPress(int by, bool withShift) {
    if (withShift)
        return false;
    if (const auto handled = m_actions.takeArrow(by))
        return *handled;
    move(by);
    return true;
}

void RailModel::activate(int index) {
    if (!holds(index))
        return;
    const RailRow chosen = row(index);
    if (chosen.kind == RailRow::Kind::more) {
        m_expanded.insert(chosen.face);
        rebuild();
    } else {
        m_actions.open(chosen.face, chosen.place);
    }
}

int RailModel::hereIndex() const {
    const auto found = std::ranges::find(rows(), true, &RailRow::here);
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

QVariant RailModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const RailRow& here = row(index.row());
    const QString count = here.count ? QString::number(*here.count) : QString();
    switch (role) {
    case KindRole:
        return static_cast<int>(here.kind);
    case Qt::DisplayRole:
    case TitleRole:
        return RowText::line(here.title);
    case CountRole:
        return count;
    case SymbolRole:
        return RowText::plain(here.symbol);
    case HereRole:
        return here.here;
    case DimmedRole:
        return here.dimmed;
    case ApartRole:
        return here.apart;
    case SpokenRole: {
        const QString name = RowText::line(here.spoken.empty() ? here.title : here.spoken);
        return count.isEmpty() ? name : name + QStringLiteral(", ") + count;
    }
    default:
        return {};
    }
}

QHash<int, QByteArray> RailModel::roleNames() const {
    return {{KindRole, "kind"},     {TitleRole, "title"},  {CountRole, "count"},
            {SymbolRole, "symbol"}, {HereRole, "here"},    {DimmedRole, "dimmed"},
            {ApartRole, "apart"},   {SpokenRole, "spoken"}};
}

} // namespace wendlow

#include "moc_RailModel.cpp"
