#pragma once

#include "Model/EditorMods.h"

#include <optional>
#include <string>

#include <QObject>

namespace wendlow {

/// The mods that are installed, and how they ran. UI thread.
class ModSource : public QObject {
    Q_OBJECT

public:
    /// Nothing until it has been read, and in a world that models none.
    virtual const std::optional<EditorModsBoard>& modsBoard() const = 0;
    virtual bool modsLoaded() const = 0;
    virtual std::optional<std::string> modsError() const = 0;
    /// Reads them, unless that is done or under way.
    virtual void loadMods() = 0;

Q_SIGNALS:
    void changed();
};

} // namespace wendlow
