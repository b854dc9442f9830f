#pragma once

#include "Benches/FiltersBenchModel.h"
#include "Benches/RowsBenchModel.h"
#include "Benches/SearchBenchModel.h"
#include "Benches/WorkbenchModel.h"
#include "Client.h"
#include "FileChooser.h"
#include "JourneyRoot.h"
#include "SettingsRoot.h"
#include "Shell/EditorHost.h"
#include "StatsRoot.h"

#include <functional>
#include <memory>

namespace wendlow {

/// What the windows show: each made on first need, and kept for the rest of the process. UI thread.
class WindowModels final {
public:
    /// A journey from its beginning, over the tools as Settings has them.
    using MakeJourney = std::function<std::unique_ptr<JourneyRoot>(WindowModels&)>;

    /// `client` is the process's only way to the daemon.
    WindowModels(std::shared_ptr<WendlowClient> client, FileChooser::Choose chooseFile,
                 MakeJourney makeJourney);
    /// Waits for a change to a person's files that is under way.
    ~WindowModels();

    EditorWorlds& worlds();
    EditorHost& editor();
    SettingsRoot& settings();
    /// Settings is to show this pane, now and when it is made.
    void openSettingsOn(Pane pane);
    StatsRoot& stats();
    /// The journey that runs; one is begun where none does.
    JourneyRoot& journey();
    /// Its window has been closed and emptied: it looks at nothing any more, and is forgotten.
    void endJourney();

    WorkbenchModel& workbench();
    FiltersBenchModel& filtersBench();
    SearchBenchModel& searchBench();
    RowsBenchModel& rowsBench();

    /// There is a daemon again: what could not be read without it is read now.
    void daemonCame();

    /// None that has been made waits for something that a picture is to show.
    bool settled() const;

private:
    const std::shared_ptr<WendlowClient> m_client;
    const FileChooser::Choose m_chooseFile;
    const MakeJourney m_makeJourney;
    Pane m_firstPane = Pane::privacy;
    std::unique_ptr<EditorWorlds> m_worlds;
    std::unique_ptr<EditorHost> m_editor;
    std::unique_ptr<SettingsRoot> m_settings;
    std::unique_ptr<StatsRoot> m_stats;
    std::unique_ptr<WorkbenchModel> m_workbench;
    std::unique_ptr<FiltersBenchModel> m_filtersBench;
    std::unique_ptr<SearchBenchModel> m_searchBench;
    std::unique_ptr<RowsBenchModel> m_rowsBench;
    std::unique_ptr<JourneyRoot> m_journey; ///< goes before the tools of Settings do
};

} // namespace wendlow
