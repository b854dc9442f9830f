#pragma once

#include "Client.h"
#include "FileChooser.h"
#include "PaneModel.h"

#include <QString>
#include <QVariantMap>

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
    std::shared_ptr<WendlowClient> client; ///< the way to the daemon
    FileChooser::Choose chooseFile;        ///< the platform's dialog
};

/// What takes the pictures of a pane.
struct PanePictures {
    /// Saves a picture of the pane as it stands; `state` says which one, and is a part of its name.
    using Save = std::function<void(const QString& state)>;

    PaneModel* model; ///< the pane's own; null where it has none
    Save save;
    /// Shows this model in place of the pane's own; null: its own again. It must live until then.
    std::function<void(PaneModel* posed)> pose;
};

struct PaneDescription {
    Pane pane;
    PaneGroup group;
    std::string_view id;   ///< in the names of files
    const char* title;     ///< still to be said
    std::string_view icon; ///< a name of the icon table
    /// Module and file of its face, which takes `model`, or what `facts` gives where there is no
    /// model.
    std::string_view file;
    std::unique_ptr<PaneModel> (*makeModel)(const PaneSurroundings& around) = nullptr;
    QVariantMap (*facts)() = nullptr;
    /// Shows the pane's states one after the other, and leaves it as it was; left out: it has but
    /// the one that it opens with.
    void (*takePictures)(const PanePictures& pictures) = nullptr;
};

namespace Panes {

/// In the order of the sidebar. This is the place to add a pane.
std::span<const PaneDescription> all();
const PaneDescription& of(Pane pane);
/// The pane of this id.
std::optional<Pane> withId(std::string_view id);

/// A model for each pane that has one.
using Models = std::map<Pane, std::unique_ptr<PaneModel>>;
Models makeModels(const PaneSurroundings& around);

} // namespace Panes

} // namespace wendlow
