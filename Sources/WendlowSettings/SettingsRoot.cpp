#include "SettingsRoot.h"

#include "Say.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace

SettingsRoot::SettingsRoot(Panes::Models models, Pane first)
    : m_models(std::move(models)), m_selection(first) {
    for (const auto& [pane, model] : m_models)
        connect(model.get(), &PaneModel::said, this, &SettingsRoot::said);
}

void SettingsRoot::select(Pane pane) {
    if (m_selection == pane)
        return;
    if (PaneModel* const shown = model(m_selection))
        shown->left();
    m_selection = pane;
    Q_EMIT selectionChanged();
}

void SettingsRoot::open(int place) {
    const int nearest = std::clamp(place, 0, places() - 1);
    select(Panes::all()[static_cast<std::size_t>(nearest)].pane);
}

void SettingsRoot::refresh() {
    m_inSight = true;
    if (PaneModel* const shown = model(m_selection))
        shown->refresh();
}

void SettingsRoot::leave() {
    m_inSight = false;
    if (PaneModel* const shown = model(m_selection))
        shown->left();
}

void SettingsRoot::daemonCame() {
    if (m_inSight)
        refresh();
}

void SettingsRoot::pose(PaneModel* model) {
    m_posed = model;
    Q_EMIT selectionChanged();
}

void SettingsRoot::started(const PaneModel::Log& log) {
    for (const auto& [pane, model] : m_models)
        model->started(log);
}

bool SettingsRoot::settled() const {
    // What is posed stands as it is meant to, also with an answer that never comes.
    const PaneModel* const shown = m_posed == nullptr ? model(m_selection) : nullptr;
    return shown == nullptr || shown->settled();
}

PaneModel* SettingsRoot::model(Pane pane) const {
    const auto found = m_models.find(pane);
    return found == m_models.end() ? nullptr : found->second.get();
}

QVariantList SettingsRoot::groups() {
    QVariantList list;
    QVariantList group;
    const auto panes = Panes::all();
    for (std::size_t place = 0; place < panes.size(); ++place) {
        const PaneDescription& pane = panes[place];
        group.append(QVariantMap{{QStringLiteral("title"), text(say(pane.title))},
                                 {QStringLiteral("icon"), text(pane.icon)},
                                 {QStringLiteral("place"), static_cast<int>(place)}});
        // Wrapped, or the group's panes would be appended to the outer list one by one.
        if (place + 1 == panes.size() || panes[place + 1].group != pane.group)
            list.append(QVariant(std::exchange(group, {})));
    }
    return list;
}

int SettingsRoot::places() {
    return static_cast<int>(Panes::all().size());
}

int SettingsRoot::place() const {
    return static_cast<int>(&Panes::of(m_selection) - Panes::all().data());
}

QUrl SettingsRoot::face() const {
    return QUrl(QStringLiteral("qrc:/qt/qml/") + text(Panes::of(m_selection).file));
}

QVariantMap SettingsRoot::properties() const {
    if (PaneModel* const shown = m_posed != nullptr ? m_posed : model(m_selection))
        return {{QStringLiteral("model"), QVariant::fromValue(shown)}};
    const auto facts = Panes::of(m_selection).facts;
    return facts == nullptr ? QVariantMap() : facts();
}

QString SettingsRoot::footer() {
    return text(say("Private on this mac. Fully encrypted."));
}

} // namespace wendlow

#include "moc_SettingsRoot.cpp"
