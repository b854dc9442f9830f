#pragma once

#include "Benches/SilentGateway.h"
#include "Shell/EditorHost.h"

#include <array>
#include <map>
#include <memory>
#include <string_view>

namespace wendlow {

/// What the Editor of a bench is over: the daemon, a made-up world, or a daemon in trouble.
enum class EditorOver { realData, powerUser, someData, dayZero, silent, warming, refusing };
inline constexpr std::array editorsOver{
    EditorOver::powerUser, EditorOver::someData, EditorOver::dayZero, EditorOver::silent,
    EditorOver::warming,   EditorOver::refusing, EditorOver::realData};
/// As a bench names it.
std::string_view overLabel(EditorOver over);

/// An Editor without its window.
struct PosedEditor {
    std::shared_ptr<SilentGateway> silent; ///< where no answer comes
    std::unique_ptr<EditorWorlds> worlds;
    std::unique_ptr<EditorHost> host;

    /// `client` is the way to the daemon, for the real data.
    PosedEditor(EditorOver over, const std::shared_ptr<WendlowClient>& client);
    ~PosedEditor();
    PosedEditor(const PosedEditor&) = delete;
    PosedEditor& operator=(const PosedEditor&) = delete;

    EditorRoot* root() const { return host->root(); }
};

/// One Editor over each of them, made on first need and kept. UI thread.
class PosedEditors final {
public:
    explicit PosedEditors(std::shared_ptr<WendlowClient> client) : m_client(std::move(client)) {}

    EditorRoot* over(EditorOver over);
    /// There is a daemon again.
    void daemonCame();

private:
    const std::shared_ptr<WendlowClient> m_client;
    std::map<EditorOver, PosedEditor> m_editors;
};

} // namespace wendlow
