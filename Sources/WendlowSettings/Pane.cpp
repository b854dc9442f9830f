#include "Pane.h"

#include "ConnectedAppsModel.h"
#include "ConnectedAppsPictures.h"
#include "ToolTiles.h"

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

void takeConnectedApps(PaneModel& model, const SavePanePicture& save) {
    ConnectedAppsPictures::take(static_cast<ConnectedAppsModel&>(model), save);
}

constexpr auto panes = std::to_array<PaneDescription>({
    {.pane = Pane::privacy,
     .group = PaneGroup::upper,
     .id = "general",
     .title = "General",
     .icon = "slider.horizontal.3"},
    {.pane = Pane::connected,
     .group = PaneGroup::upper,
     .id = "connected",
     .title = "Connected Apps",
     .icon = "powerplug",
     .file = "WendlowSettings/ConnectedAppsPane.qml",
     .makeModel = makeConnectedApps,
     .takePictures = takeConnectedApps},
    {.pane = Pane::recording,
     .group = PaneGroup::upper,
     .id = "recording",
     .title = "Recording Control",
     .icon = "record.circle"},
    {.pane = Pane::classifier,
     .group = PaneGroup::lower,
     .id = "classifier",
     .title = "Local AI Classifier",
     .icon = "cpu.fill"},
    {.pane = Pane::recovery,
     .group = PaneGroup::lower,
     .id = "recovery",
     .title = "Recovery",
     .icon = "key.fill"},
});

} // namespace

std::span<const PaneDescription> all() {
    return panes;
}

const PaneDescription& of(Pane pane) {
    return *std::ranges::find(panes, pane, &PaneDescription::pane);
}

Models makeModels(const PaneSurroundings& around) {
    Models models;
    for (const PaneDescription& description : panes)
        if (description.makeModel)
            models.emplace(description.pane, description.makeModel(around));
    return models;
}

} // namespace wendlow::Panes
