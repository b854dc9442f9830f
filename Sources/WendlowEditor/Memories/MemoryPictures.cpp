#include "Memories/MemoryFaceModel.h"

namespace wendlow {

namespace {

using World = FacePicture::World;
using Widths = FacePicture::Widths;

int chipOf(FilterBarModel& bar, const std::string& key) {
    for (int row = 0; row < bar.chips()->rowCount(); ++row)
        if (bar.chips()->row(row).id == key)
            return row;
    return -1;
}

} // namespace

FacePictures MemoryFaceModel::pictures() {
    const auto openDecisions = [this] { open("decision"); };
    const auto askOf = [this](const char* term) {
        EditorAsk ask{.term = term};
        ask.type = m_openType;
        return ask;
    };
    FacePictures pictures;
    for (const auto& [name, world] : {std::pair("pending", World::silent),
                                      {"warming", World::warming},
                                      {"failed", World::refusing}})
        pictures.push_back({.name = name, .world = world, .stand = openDecisions});
    pictures.push_back({.name = "empty", .world = World::empty});
    pictures.push_back({.name = "grid", .widths = Widths::every});
    pictures.push_back({.name = "narrowed",
                        .stand =
                            [this, askOf] {
                                EditorAsk ask = askOf("mooring");
                                ask.scopes = {"/work/harbour"};
                                m_actions.ask(std::move(ask));
                            },
                        .leave = [this, askOf] { m_actions.ask(askOf("")); }});
    pictures.push_back({.name = "list",
                        .widths = Widths::every,
                        .wholeRail = true,
                        .stand =
                            [this] {
                                open("decision");
                                m_list.toggle(1);
                            },
                        .leave = [this] { m_list.toggle(1); }});
    pictures.push_back({.name = "filtered", .widths = Widths::every, .stand = [this, askOf] {
                            m_actions.ask(askOf("backup"));
                            FilterBarModel& bar = *m_list.filters();
                            const std::string key = "owner";
                            if (chipOf(bar, key) < 0)
                                return;
                            bar.togglePanel(QString::fromStdString(key));
                            bar.toggleValue(0);
                            bar.toggleValue(1);
                        }});
    pictures.push_back({.name = "nothing-matches",
                        .widths = Widths::every,
                        .stand =
                            [this, askOf] {
                                m_actions.ask(askOf("zeppelin"));
                                m_list.filters()->closePanel();
                            },
                        .leave = [this, askOf] { m_actions.ask(askOf("")); }});
    pictures.push_back({.name = "grouped",
                        .widths = Widths::every,
                        .stand = [this] { open("ticket"); },
                        .leave = [this] { close(); }});
    return pictures;
}

} // namespace wendlow
