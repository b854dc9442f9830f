#include "Pane.h"

#include "Classifier/ClassifierStatus.h"
#include "ConnectedAppsModel.h"
#include "ConnectedAppsPictures.h"
#include "General/PrivacyModel.h"
#include "Recording/InstalledApps.h"
#include "Recording/RecordingControlModel.h"
#include "Recovery/RecoveryModel.h"
#include "SettingsPictures.h"
#include "ToolTiles.h"
#include "TranslationContext.h"

#include <algorithm>
#include <array>

namespace wendlow::Panes {

namespace {

std::unique_ptr<PaneModel> makeConnectedApps(const PaneSurroundings& around) {
    return ConnectedAppsModel::forThisMac(
        around.home, around.bundle, around.applications,
        {.copy = {},
         .imageLoads =
             [](const std::string& asset) { return ToolTiles::has(QString::fromStdString(asset)); },
         .home = {}});
}

void takeConnectedApps(const PanePictures& pictures) {
    ConnectedAppsPictures::take(static_cast<ConnectedAppsModel&>(*pictures.model), pictures.save);
}

std::unique_ptr<PaneModel> makeGeneral(const PaneSurroundings& around) {
    return std::make_unique<PrivacyModel>(around.client, PrivacyModel::Surroundings{});
}

std::unique_ptr<PaneModel> makeRecording(const PaneSurroundings& around) {
    const auto installed = [home = around.home] {
        return InstalledApps::names(InstalledApps::places(home));
    };
    return std::make_unique<RecordingControlModel>(
        around.client,
        AppChooser::Surroundings{.installed = installed, .choose = around.chooseFile});
}

std::unique_ptr<PaneModel> makeRecovery(const PaneSurroundings& around) {
    return std::make_unique<RecoveryModel>(around.client, &ConnectedAppsModel::copyToPasteboard);
}

QVariantMap giveClassifier() {
    return {{QStringLiteral("status"), ClassifierStatus::current().map()}};
}

constexpr auto panes = std::to_array<PaneDescription>({
    {.pane = Pane::privacy,
     .group = PaneGroup::upper,
     .id = "general",
     .title = sayLater("General"),
     .icon = "slider.horizontal.3",
     .file = "WendlowSettings/General/GeneralPane.qml",
     .makeModel = makeGeneral,
     .takePictures = SettingsPictures::takeGeneral},
    {.pane = Pane::connected,
     .group = PaneGroup::upper,
     .id = "connected",
     .title = sayLater("Connected Apps"),
     .icon = "powerplug",
     .file = "WendlowSettings/ConnectedAppsPane.qml",
     .makeModel = makeConnectedApps,
     .takePictures = takeConnectedApps},
    {.pane = Pane::recording,
     .group = PaneGroup::upper,
     .id = "recording",
     .title = sayLater("Recording Control"),
     .icon = "record.circle",
     .file = "WendlowSettings/Recording/RecordingPane.qml",
     .makeModel = makeRecording,
     .takePictures = SettingsPictures::takeRecording},
    {.pane = Pane::classifier,
     .group = PaneGroup::lower,
     .id = "classifier",
     .title = sayLater("Local AI Classifier"),
     .icon = "cpu.fill",
     .file = "WendlowSettings/Classifier/ClassifierPane.qml",
     .facts = giveClassifier},
    {.pane = Pane::recovery,
     .group = PaneGroup::lower,
     .id = "recovery",
     .title = sayLater("Recovery"),
     .icon = "key.fill",
     .file = "WendlowSettings/Recovery/RecoveryPane.qml",
     .makeModel = makeRecovery,
     .takePictures = SettingsPictures::takeRecovery},
});

} // namespace

std::span<const PaneDescription> all() {
    return panes;
}

const PaneDescription& of(Pane pane) {
    return *std::ranges::find(panes, pane, &PaneDescription::pane);
}

std::optional<Pane> withId(std::string_view id) {
    const auto* const found = std::ranges::find(panes, id, &PaneDescription::id);
    return found == panes.end() ? std::nullopt : std::optional(found->pane);
}

Models makeModels(const PaneSurroundings& around) {
    Models models;
    for (const PaneDescription& description : panes)
        if (description.makeModel)
            models.emplace(description.pane, description.makeModel(around));
    return models;
}

} // namespace wendlow::Panes
