#pragma once

#include <functional>

class QWindow;

namespace wendlow::FirstFrame {

/// Does `act` once, when the window's first frame is on its way to the screen. The window must be
/// one of Qt Quick.
void then(QWindow& window, std::function<void()> act);

/// After the window's first frame is on its way to the screen that was made when `isComplete` held:
/// prints the milliseconds since the process was started (in steps of 10, as the system counts
/// them) and its resident memory in KB, as "first-frame 120 ms, resident 81920 KB", and ends the
/// application. The window must be one of Qt Quick.
void reportAndQuit(QWindow& window, std::function<bool()> isComplete = [] { return true; });

} // namespace wendlow::FirstFrame
