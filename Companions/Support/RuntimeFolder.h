#pragma once

#include <cstdlib>
#include <string>

#include <unistd.h>

namespace wendlow {

/// Lets a program that an AI tool starts find the session bus: some tools hand on next to nothing
/// of their environment, and where the bus is stands in that. Where nothing tells it, it is looked
/// for in the folder that a login has on this system. Called before there is a second thread.
inline void findRuntimeFolder() {
    if (std::getenv("DBUS_SESSION_BUS_ADDRESS") != nullptr ||
        std::getenv("XDG_RUNTIME_DIR") != nullptr)
        return;
    const std::string folder = "/run/user/" + std::to_string(::getuid());
    if (::access((folder + "/bus").c_str(), F_OK) == 0)
        ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
}

} // namespace wendlow
