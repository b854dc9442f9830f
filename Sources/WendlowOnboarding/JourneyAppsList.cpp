#include "JourneyAppsList.h"

#include <algorithm>

namespace wendlow {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

/// What a person has to know of a verb that came to nothing: the sentence, and what it rests on.
std::string refusalIn(const std::vector<RowStrip>& strips) {
    const auto refused = std::ranges::find(strips, RowStrip::Tone::refusal, &RowStrip::tone);
    if (refused == strips.end())
        return {};
    if (refused->lines.empty())
        return refused->headline;
    return refused->headline + "\n" + refused->lines.front().text;
}

} // namespace

JourneyApp JourneyApp::of(const ConnectedAppRow& row) {
    const auto* const asset = std::get_if<ConnectableAppIcon::Asset>(&row.app.icon.kind);
    const auto* const glyph = std::get_if<ConnectableAppIcon::Glyph>(&row.app.icon.kind);
    return {.id = row.app.id,
            .name = row.app.name,
            .detail = row.app.detail,
            .asset = asset ? asset->name : std::string(),
            .glyph = glyph ? glyph->name : std::string(),
            .connected = row.app.connected,
            .busy = row.app.busy,
            .refusal = refusalIn(row.strips)};
}

QVariant JourneyAppsList::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const JourneyApp& app = row(index.row());
    switch (role) {
    case AppIdRole:
        return text(app.id);
    case Qt::DisplayRole:
    case NameRole:
        return text(app.name);
    case DetailRole:
        return text(app.detail);
    case IconAssetRole:
        return text(app.asset);
    case IconGlyphRole:
        return text(app.glyph);
    case ConnectedRole:
        return app.connected;
    case BusyRole:
        return app.busy;
    case RefusalRole:
        return text(app.refusal);
    case SpokenRole:
        return text(app.refusal.empty() ? app.name + ", " + app.detail
                                        : app.name + ", " + app.refusal);
    default:
        return {};
    }
}

QHash<int, QByteArray> JourneyAppsList::roleNames() const {
    return {
        {AppIdRole, "appId"},         {NameRole, "name"},           {DetailRole, "detail"},
        {IconAssetRole, "iconAsset"}, {IconGlyphRole, "iconGlyph"}, {ConnectedRole, "connected"},
        {BusyRole, "busy"},           {RefusalRole, "refusal"},     {SpokenRole, "spoken"}};
}

} // namespace wendlow

#include "moc_JourneyAppsList.cpp"
