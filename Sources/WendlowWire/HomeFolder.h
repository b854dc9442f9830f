#pragma once

#include <string>

namespace wendlow {

/// The person's home folder, without a slash at its end: `HOME` where it is an absolute path, else
/// what the user database says, else "/". Read anew at each call.
std::string homeFolder();

/// `path` with a leading "~" or "~/" put in full; any other path as it is.
std::string expandingTilde(const std::string& path);

} // namespace wendlow
