#pragma once

#include <string>

/// The journey's log, for support: one plain line per event, the time in ISO 8601 (UTC) before it.
/// A failure is given up in silence. Any thread.
namespace wendlow::SetupLog {

/// "~/Library/Logs/wendlow-journey.log", the home read anew at each call.
std::string path();

/// Appends a line, with the time of the call, to the log that `path` names at the call. The caller
/// never waits: a queue of its own writes, and one that stands still because the disk does forgets
/// lines rather than grow without bound. A logs folder that is missing is made.
void line(std::string text);

/// Waits until the lines so far are written or given up. For tests, and for nobody who may not
/// wait.
void drain();

} // namespace wendlow::SetupLog
