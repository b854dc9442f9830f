#include "ClientInstance.h"
#include "TranslationContext.h"
#include "WindowDescription.h"
#include "WindowModels.h"
#include "WindowPictures.h"

#include <algorithm>
#include <array>
#include <memory>

namespace wendlow::WindowDescriptions {

namespace {

using Kind = WindowKind;
using Door = WindowDoor::Pane;

constexpr WindowStyles bench = WindowStyles(WindowStyle::titled) | WindowStyle::closable |
                               WindowStyle::miniaturizable | WindowStyle::resizable;
constexpr WindowStyles fullSize = bench | WindowStyle::fullSizeContent;
constexpr WindowStyles fixed = WindowStyles(WindowStyle::titled) | WindowStyle::closable |
                               WindowStyle::miniaturizable | WindowStyle::fullSizeContent;

QVariantMap giveSettings(WindowModels& models) {
    models.settings().refresh(); // on its way while the window is being built
    return {{QStringLiteral("root"), QVariant::fromValue(&models.settings())}};
}

void refreshSettings(WindowModels& models) {
    models.settings().refresh(); // a person may have changed a tool's files in the other window
}

QVariantMap giveStats(WindowModels& models) {
    return {{QStringLiteral("root"), QVariant::fromValue(&models.stats())}};
}

void lookAgainAtStats(WindowModels& models) {
    models.stats().lookAgain(); // midnight may have passed
}

QVariantMap giveJourney(WindowModels& models) {
    return {{QStringLiteral("root"), QVariant::fromValue(&models.journey())}};
}

/// The journey is there when it has found out where a person stands.
bool isJourneyComplete(WindowModels& models) {
    return models.journey().isStarted();
}

void lookAgainAtJourney(WindowModels& models) {
    models.journey().lookAgain(); // a permission may have been given meanwhile
}

QVariantMap giveWorkbench(WindowModels& models) {
    return {{QStringLiteral("bench"), QVariant::fromValue(&models.workbench())}};
}

QVariantMap giveFilters(WindowModels& models) {
    return {{QStringLiteral("bench"), QVariant::fromValue(&models.filtersBench())}};
}

QVariantMap giveSearch(WindowModels& models) {
    return {{QStringLiteral("bench"), QVariant::fromValue(&models.searchBench())}};
}

QVariantMap giveRows(WindowModels& models) {
    return {{QStringLiteral("bench"), QVariant::fromValue(&models.rowsBench())}};
}

QVariantMap giveEditor(WindowModels& models) {
    return {{QStringLiteral("host"), QVariant::fromValue(&models.editor())}};
}

/// The Editor is there when it shows the counts of what is remembered, or that it cannot.
bool isEditorComplete(WindowModels& models) {
    return models.editor().root()->isFilled();
}

// Of a literal, so a zero ends it.
constexpr const char* productName = std::to_address(ClientInstance::productName.begin());

constexpr auto windows = std::to_array<WindowDescription>({
    {.kind = Kind::settings,
     .id = "settings",
     .title = productName,
     .size = {980, 860},
     .styles = fullSize,
     .door = Door::settings,
     .file = "WendlowSettings/SettingsFace.qml",
     .properties = giveSettings,
     .returnedTo = refreshSettings,
     .takePictures = WindowPictures::takeSettings},
    {.kind = Kind::stats,
     .id = "stats",
     .title = sayLater("Stats"),
     .size = {800, 780},
     .styles = fullSize,
     .door = Door::stats,
     .file = "WendlowStats/StatsFace.qml",
     .properties = giveStats,
     .returnedTo = lookAgainAtStats,
     .takePictures = WindowPictures::takeStats},
    {.kind = Kind::editor,
     .id = "editor",
     .title = sayLater("Memories"),
     .size = {980, 860},
     .styles = fullSize,
     .side = WindowSide::editor,
     .place = WindowPlace::centredThenCascaded,
     .door = Door::editor,
     .file = "WendlowEditor/EditorHostFace.qml",
     .properties = giveEditor,
     .isComplete = isEditorComplete,
     .takePictures = WindowPictures::takeEditor},
    {.kind = Kind::onboarding,
     .id = "journey",
     .title = sayLater("Welcome to Wendlow"),
     .size = {800, 620},
     .styles = fixed,
     .alwaysDark = true,
     .door = Door::onboarding,
     .file = "WendlowOnboarding/JourneyFace.qml",
     .properties = giveJourney,
     .isComplete = isJourneyComplete,
     .returnedTo = lookAgainAtJourney,
     .takePictures = WindowPictures::takeJourney},
    {.kind = Kind::workbench,
     .id = "workbench",
     .title = sayLater("Workbench"),
     .size = {1200, 680},
     .styles = bench,
     .side = WindowSide::editor,
     .ownLooks = true,
     .worldLine = "openWorkbench",
     .file = "WendlowEditorBenches/Workbench.qml",
     .properties = giveWorkbench,
     .takePictures = WindowPictures::takeWorkbench},
    {.kind = Kind::controlsBench,
     .id = "controls-bench",
     .title = sayLater("Controls Bench"),
     .size = {780, 900},
     .styles = bench,
     .side = WindowSide::editor,
     .worldLine = "openControlsBench",
     .file = "WendlowControls/ControlsBench.qml",
     .takePictures = WindowPictures::takeControls},
    {.kind = Kind::filtersBench,
     .id = "filters-bench",
     .title = sayLater("Filters Bench"),
     .size = {820, 940},
     .styles = bench,
     .side = WindowSide::editor,
     .worldLine = "openFiltersBench",
     .file = "WendlowEditorBenches/FiltersBench.qml",
     .properties = giveFilters,
     .takePictures = WindowPictures::takeFilters},
    {.kind = Kind::searchBench,
     .id = "search-bench",
     .title = sayLater("Search Bench"),
     .size = {1080, 900},
     .styles = bench,
     .side = WindowSide::editor,
     .worldLine = "openSearchBench",
     .file = "WendlowEditorBenches/SearchBench.qml",
     .properties = giveSearch,
     .takePictures = WindowPictures::takeSearch},
    {.kind = Kind::rowsBench,
     .id = "rows-bench",
     .title = sayLater("Rows Bench"),
     .size = {980, 940},
     .styles = bench,
     .side = WindowSide::editor,
     .worldLine = "openRowsBench",
     .file = "WendlowEditorBenches/RowsBench.qml",
     .properties = giveRows,
     .takePictures = WindowPictures::takeRows},
});

constexpr bool standInTheOrderOfTheCases() {
    for (std::size_t at = 0; at < windows.size(); ++at)
        if (windows[at].kind != static_cast<WindowKind>(at))
            return false;
    return true;
}
static_assert(standInTheOrderOfTheCases());

} // namespace

std::span<const WindowDescription> all() {
    return windows;
}

const WindowDescription& of(WindowKind kind) {
    return windows[static_cast<std::size_t>(kind)];
}

WindowKind kindOf(WindowDoor::Pane pane) {
    return std::ranges::find(windows, std::optional(pane), &WindowDescription::door)->kind;
}

} // namespace wendlow::WindowDescriptions
