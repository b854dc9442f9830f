#include "Shell/RailModel.h"

#include "Shell/RowText.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

QString kindName(RailRow::Kind kind) {
    switch (kind) {
    case RailRow::Kind::heading:
        return QStringLiteral("heading");
    case RailRow::Kind::type:
        return QStringLiteral("type");
    case RailRow::Kind::more:
        return QStringLiteral("more");
    case RailRow::Kind::face:
        return QStringLiteral("face");
    }
    return {};
}

// The id of a row is its kind's letter and what tells it apart among its kind.
constexpr std::size_t kindLetter = 1;

std::string tail(const RailRow& row) {
    return row.id.substr(kindLetter);
}

} // namespace

void RailModel::show(RailState state) {
    m_state = std::move(state);
    rebuild();
}

std::vector<TypeShelfRow> RailModel::shelf() const {
    std::vector<EditorCount> ordinary;
    for (const EditorCount& type : m_state.standing)
        if (!RailCounts::isGoverned(type.name))
            ordinary.push_back(type);
    return TypeShelf::rows(ordinary, m_state.answer);
}

std::size_t RailModel::typesShown() const {
    const std::size_t all = shelf().size();
    return m_memoriesExpanded ? all : std::min(all, memoryTypesShown);
}

std::optional<std::int64_t> RailModel::number(EditorFace face) const {
    // Before anything has been read, none is not a number of things.
    const bool counted = !m_state.standing.empty() || m_state.answer.ready();
    switch (face) {
    case EditorFace::memory:
        return counted ? std::optional(RailCounts::memories(m_state.standing)) : std::nullopt;
    case EditorFace::meetings:
        return m_state.meetings;
    case EditorFace::moments:
        return m_state.moments;
    case EditorFace::rules:
        return counted ? std::optional(RailCounts::rules(m_state.standing)) : std::nullopt;
    case EditorFace::mods:
        return m_state.mods;
    case EditorFace::scopes:
        return m_state.scopes;
    }
    return std::nullopt;
}

void RailModel::rebuild() {
    const bool onMemories = m_state.face == EditorFace::memory;
    const auto types = shelf();
    const std::size_t shown = typesShown();
    std::vector<RailRow> rows;
    rows.reserve(shown + EditorFaces::all.size() + 1);
    rows.push_back({.id = "h",
                    .kind = RailRow::Kind::heading,
                    .title = "MEMORIES",
                    .count = number(EditorFace::memory)});
    bool inSight = false;
    for (std::size_t at = 0; at < shown; ++at) {
        const TypeShelfRow& type = types[at];
        const bool here = onMemories && m_state.openType == type.name;
        inSight = inSight || here;
        rows.push_back({.id = "t" + type.name,
                        .kind = RailRow::Kind::type,
                        .title = TypeWords::pluralized(type.name),
                        .count = type.count,
                        .dimmed = type.matchedNothing,
                        .here = here});
    }
    // An open type that is not in sight is somewhere among the memories.
    rows.front().here = onMemories && !inSight;
    if (types.size() > shown)
        rows.push_back({.id = "m",
                        .kind = RailRow::Kind::more,
                        .title = fmt::format("{} more", types.size() - shown),
                        .count = std::nullopt});
    for (const EditorFace face : EditorFaces::all)
        if (face != EditorFace::memory)
            rows.push_back({.id = fmt::format("f{}", EditorFaces::text(face)),
                            .kind = RailRow::Kind::face,
                            .title = std::string(EditorFaces::title(face)),
                            .count = number(face),
                            .here = m_state.face == face});
    take(std::move(rows));
    Q_EMIT hereChanged();
}

std::vector<RailModel::Pick> RailModel::pickOrder() const {
    std::vector<Pick> order;
    const auto types = shelf();
    const std::size_t shown = typesShown();
    order.reserve(shown + EditorFaces::all.size());
    for (std::size_t at = 0; at < shown; ++at)
        order.emplace_back(types[at].name);
    for (const EditorFace face : EditorFaces::all)
        if (face != EditorFace::memory)
            order.emplace_back(face);
    return order;
}

void RailModel::move(int by) {
    const auto order = pickOrder();
    const bool onType = m_state.face == EditorFace::memory && m_state.openType.has_value();
    // The memories as a whole are in no pick order, so that they are never found in it.
    const Pick current = onType ? Pick(*m_state.openType) : Pick(m_state.face);
    const auto found = std::ranges::find(order, current);
    const auto last = static_cast<std::ptrdiff_t>(order.size()) - 1;
    const auto next =
        found == order.end() ? 0 : std::clamp<std::ptrdiff_t>(found - order.begin() + by, 0, last);
    apply(order[static_cast<std::size_t>(next)]);
}

void RailModel::apply(const Pick& pick) {
    if (const auto* const type = std::get_if<std::string>(&pick))
        m_actions.openMemories(*type);
    else
        m_actions.openFace(std::get<EditorFace>(pick));
}

bool RailModel::arrowPress(int by, bool withShift) {
    if (withShift)
        return false;
    if (const auto handled = m_actions.moveSearch(by))
        return *handled;
    move(by);
    return true;
}

void RailModel::activate(int index) {
    if (!holds(index))
        return;
    const RailRow row = this->row(index);
    switch (row.kind) {
    case RailRow::Kind::heading:
        m_actions.openMemories(std::nullopt);
        break;
    case RailRow::Kind::type:
        m_actions.openMemories(tail(row));
        break;
    case RailRow::Kind::more:
        m_memoriesExpanded = true;
        rebuild();
        break;
    case RailRow::Kind::face:
        m_actions.openFace(EditorFaces::fromText(tail(row)).value_or(EditorFace::memory));
        break;
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
        return kindName(here.kind);
    case Qt::DisplayRole:
    case TitleRole:
        return RowText::line(here.title);
    case CountRole:
        return count;
    case SymbolRole: {
        const auto face =
            here.kind == RailRow::Kind::face ? EditorFaces::fromText(tail(here)) : std::nullopt;
        return face ? RowText::plain(EditorFaces::symbol(*face)) : QString();
    }
    case HereRole:
        return here.here;
    case DimmedRole:
        return here.dimmed;
    case SpokenRole: {
        const QString name =
            RowText::line(here.kind == RailRow::Kind::heading ? "Memories" : here.title);
        return count.isEmpty() ? name : name + QStringLiteral(", ") + count;
    }
    default:
        return {};
    }
}

QHash<int, QByteArray> RailModel::roleNames() const {
    return {{KindRole, "kind"},     {TitleRole, "title"}, {CountRole, "count"},
            {SymbolRole, "symbol"}, {HereRole, "here"},   {DimmedRole, "dimmed"},
            {SpokenRole, "spoken"}};
}

} // namespace wendlow
