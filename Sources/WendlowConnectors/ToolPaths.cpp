#include "ToolPaths.h"

#include "OwnedNames.h"

namespace wendlow {

ToolPaths ToolPaths::under(const Path& home, const Path& bundle, std::string_view tool,
                           const char* directory, const char* hooksFile, const char* serversFile) {
    return {
        .tool = std::string(tool),
        .configDirectory = home / directory,
        .hooksFile = home / hooksFile,
        .serversFile = home / serversFile,
        .receiptFile = OwnedNames::receipt(home, tool),
        .hookBinary = OwnedNames::program(bundle, OwnedNames::hookProgram),
        .mcpBinary = OwnedNames::program(bundle, OwnedNames::mcpProgram),
    };
}

std::string ToolPaths::hookCommand() const {
    return hookBinary.string() + " --harness " + tool;
}

std::string ToolPaths::preToolCommand() const {
    return hookCommand() + " --slot pretool";
}

std::string ToolPaths::mcpCommand() const {
    return mcpBinary.string();
}

} // namespace wendlow
