#include "OpenCode/OpenCodeConnector.h"

namespace wendlow {

ProjectReport OpenCodeConnector::projects() const {
    return {};
}

MemoryFileReport OpenCodeConnector::memoryFiles() const {
    return {};
}

} // namespace wendlow
