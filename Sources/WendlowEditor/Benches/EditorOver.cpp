#include "EditorOver.h"

#include "SilentGateway.h"
#include "UnimplementedGateway.h"
#include "WarmingGateway.h"

#include <utility>

namespace wendlow {

namespace {

EditorWorld worldOf(EditorOver over) {
    switch (over) {
    case EditorOver::powerUser:
        return EditorWorld::powerUser;
    case EditorOver::someData:
        return EditorWorld::someData;
    case EditorOver::dayZero:
        return EditorWorld::dayZero;
    default:
        return EditorWorld::realData;
    }
}

/// A made-up world asks nobody.
std::shared_ptr<WendlowClient> clientOf(EditorOver over,
                                        const std::shared_ptr<WendlowClient>& daemon,
                                        const std::shared_ptr<SilentGateway>& silent) {
    switch (over) {
    case EditorOver::realData:
        return daemon;
    case EditorOver::silent:
        return std::make_shared<InProcessClient>(silent);
    case EditorOver::warming:
        return std::make_shared<InProcessClient>(std::make_shared<WarmingGateway>());
    default:
        return std::make_shared<InProcessClient>(std::make_shared<UnimplementedGateway>());
    }
}

} // namespace

std::string_view overLabel(EditorOver over) {
    switch (over) {
    case EditorOver::realData:
        return "Database";
    case EditorOver::powerUser:
        return "Power user";
    case EditorOver::someData:
        return "Some data";
    case EditorOver::dayZero:
        return "Day zero";
    case EditorOver::silent:
        return "No answer comes";
    case EditorOver::warming:
        return "Index not ready";
    case EditorOver::refusing:
        return "Each question refused";
    }
    return {};
}

PosedEditor::PosedEditor(EditorOver over, const std::shared_ptr<WendlowClient>& client)
    : silent(over == EditorOver::silent ? std::make_shared<SilentGateway>() : nullptr),
      worlds(std::make_unique<EditorWorlds>(clientOf(over, client, silent), worldOf(over))),
      host(std::make_unique<EditorHost>(*worlds)) {}

PosedEditor::~PosedEditor() {
    host.reset();
    worlds.reset();
    if (silent)
        silent->giveUp();
}

EditorRoot* PosedEditors::over(EditorOver over) {
    return m_editors.try_emplace(over, over, m_client).first->second.root();
}

void PosedEditors::daemonCame() {
    if (const auto real = m_editors.find(EditorOver::realData); real != m_editors.end())
        real->second.worlds->daemonCame();
}

} // namespace wendlow
