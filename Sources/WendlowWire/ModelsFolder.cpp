#include "ModelsFolder.h"

#include <fmt/format.h>

#include "ClientInstance.h"

namespace wendlow::ModelsFolder {

std::string defaultSupport() {
    return ClientInstance::defaultSupport();
}

std::string root(std::string_view support) {
    return fmt::format("{}/{}", ClientInstance::supportRoot(support), modelsRootName);
}

std::string naming(std::string_view support) {
    return fmt::format("{}/{}", root(support), namingDirName);
}

std::string speech(std::string_view support) {
    return fmt::format("{}/{}", root(support), speechDirName);
}

std::string voices(std::string_view support) {
    return fmt::format("{}/{}", root(support), voicesDirName);
}

std::string namingRuntime(std::string_view support) {
    return fmt::format("{}/{}", naming(support), runtimeDirName);
}

std::string namingBinary(std::string_view support) {
    return namingRuntime(support) + "/ollama";
}

std::string namingStore(std::string_view support) {
    return naming(support) + "/store";
}

} // namespace wendlow::ModelsFolder
