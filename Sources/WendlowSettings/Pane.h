#pragma once

#include "PaneModel.h"

#include <QString>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

namespace wendlow {

/// A pane of the Settings window.
enum class Pane { privacy, recording, connected, classifier, recovery };

/// The sidebar leaves a gap between one group and the next.
enum class PaneGroup { upper, lower };

/// What the models of the panes are made from.
struct PaneSurroundings {
    std::filesystem::path home;
    std::optional<std::filesystem::path> bundle; ///< of the running program; nothing: not installed
    std::filesystem::path applications;
};

/// Saves a picture of the pane as it stands; `state` says which one, and is a part of its name.
using SavePanePicture = std::function<void(const QString& state)>;

struct PaneDescription {
    Pane pane;
    PaneGroup group;
    std::string_view id; ///< in the names of files
    std::string_view title;
    std::string_view icon; ///< a name of the icon table
    /// Module and file of its face, which takes `model`, or `title` where there is no model.
    std::string_view file = "WendlowSettings/PlainPane.qml";
    std::unique_ptr<PaneModel> (*makeModel)(const PaneSurroundings& around) = nullptr;
    /// Shows the pane's states one after the other, and leaves it as it was; left out: it has but
    /// the one that it opens with.
    void (*takePictures)(PaneModel& model, const SavePanePicture& save) = nullptr;
};

namespace Panes {

/// In the order of the sidebar. This is the place to add a pane.
std::span<const PaneDescription> all();
const PaneDescription& of(Pane pane);

/// A model for each pane that has one.
using Models = std::map<Pane, std::unique_ptr<PaneModel>>;
Models makeModels(const PaneSurroundings& around);

} // namespace Panes

} // namespace wendlow
