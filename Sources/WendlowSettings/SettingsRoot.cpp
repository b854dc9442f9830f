#include "SettingsRoot.h"

namespace wendlow {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace

SettingsRoot::SettingsRoot(std::unique_ptr<ConnectedAppsModel> connected)
    : m_connected(std::move(connected)) {}

void SettingsRoot::select(const QString& title) {
    const std::optional<Pane> pane = Panes::fromTitle(title.toStdString());
    if (!pane || *pane == m_selection)
        return;
    m_selection = *pane;
    Q_EMIT selectionChanged();
}

QString SettingsRoot::selectionTitle() const {
    return text(Panes::title(m_selection));
}

QVariantList SettingsRoot::groups() {
    QVariantList list;
    for (const std::vector<Pane>& group : Panes::groups()) {
        QVariantList panes;
        for (const Pane pane : group) {
            panes.append(QVariantMap{{QStringLiteral("title"), text(Panes::title(pane))},
                                     {QStringLiteral("icon"), text(Panes::icon(pane))}});
        }
        // Wrapped, or the group's panes would be appended to the outer list one by one.
        list.append(QVariant(panes));
    }
    return list;
}

QString SettingsRoot::footer() {
    return QStringLiteral("Private on this mac. Fully encrypted.");
}

} // namespace wendlow
