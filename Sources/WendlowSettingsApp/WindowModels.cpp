#include "WindowModels.h"

#include "DiagnosticRelay.h"
#include "HomeFolder.h"
#include "InstalledBundle.h"

#include <utility>

namespace wendlow {

WindowModels::WindowModels(std::shared_ptr<WendlowClient> client, FileChooser::Choose chooseFile,
                           MakeJourney makeJourney)
    : m_client(std::move(client)), m_chooseFile(std::move(chooseFile)),
      m_makeJourney(std::move(makeJourney)) {}

WindowModels::~WindowModels() = default;

EditorWorlds& WindowModels::worlds() {
    if (!m_worlds)
        m_worlds = std::make_unique<EditorWorlds>(
            m_client, EditorWorld::realData,
            [relay = DiagnosticRelay(DiagnosticSource::editor, m_client)](std::string line) {
                relay.note(std::move(line));
            });
    return *m_worlds;
}

EditorHost& WindowModels::editor() {
    if (!m_editor)
        m_editor = std::make_unique<EditorHost>(worlds());
    return *m_editor;
}

void WindowModels::daemonCame() {
    if (m_worlds)
        m_worlds->daemonCame();
    if (m_settings)
        m_settings->daemonCame();
    if (m_stats)
        m_stats->daemonCame();
    if (m_workbench)
        m_workbench->daemonCame();
    if (m_searchBench)
        m_searchBench->daemonCame();
    if (m_rowsBench)
        m_rowsBench->daemonCame();
}

SettingsRoot& WindowModels::settings() {
    if (!m_settings)
        m_settings =
            std::make_unique<SettingsRoot>(Panes::makeModels({.home = homeFolder(),
                                                              .bundle = InstalledBundle::current(),
                                                              .applications = "/Applications",
                                                              .client = m_client,
                                                              .chooseFile = m_chooseFile}),
                                           m_firstPane);
    return *m_settings;
}

void WindowModels::openSettingsOn(Pane pane) {
    m_firstPane = pane;
    if (m_settings)
        m_settings->select(pane);
}

StatsRoot& WindowModels::stats() {
    if (!m_stats)
        m_stats = std::make_unique<StatsRoot>(m_client);
    return *m_stats;
}

WorkbenchModel& WindowModels::workbench() {
    if (!m_workbench)
        m_workbench = std::make_unique<WorkbenchModel>(m_client);
    return *m_workbench;
}

FiltersBenchModel& WindowModels::filtersBench() {
    if (!m_filtersBench)
        m_filtersBench = std::make_unique<FiltersBenchModel>();
    return *m_filtersBench;
}

SearchBenchModel& WindowModels::searchBench() {
    if (!m_searchBench)
        m_searchBench = std::make_unique<SearchBenchModel>(m_client);
    return *m_searchBench;
}

RowsBenchModel& WindowModels::rowsBench() {
    if (!m_rowsBench)
        m_rowsBench = std::make_unique<RowsBenchModel>(m_client);
    return *m_rowsBench;
}

JourneyRoot& WindowModels::journey() {
    if (!m_journey)
        m_journey = m_makeJourney(*this);
    return *m_journey;
}

void WindowModels::endJourney() {
    // What showed it is on its way out, and goes before it.
    if (m_journey)
        m_journey.release()->deleteLater();
}

bool WindowModels::settled() const {
    return (!m_settings || m_settings->settled()) && (!m_stats || m_stats->settled());
}

} // namespace wendlow
