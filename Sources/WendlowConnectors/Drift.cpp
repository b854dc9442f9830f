#include "Drift.h"

#include "ConfigFile/Disk.h"
#include "OwnedNames.h"
#include "Say.h"

namespace wendlow::Drift {

std::string otherShape() {
    return say("the entry's shape is not the one this build writes");
}

std::vector<std::string> reasons(std::string_view found, std::string_view expected,
                                 const std::filesystem::path& binary) {
    std::vector<std::string> sentences;
    if (found != expected) {
        if (found.contains(OwnedNames::checkout))
            sentences.push_back(say("the command points into a source checkout: {}", found));
        for (const std::string_view marker : {"dist-dev", "dist-prod"})
            if (found.contains(marker))
                sentences.push_back(say("the command points at a development build: {}", found));
        if (sentences.empty())
            sentences.push_back(say("the command is not the one this build writes: {}", found));
    }
    if (!Disk::exists(binary))
        sentences.push_back(say("the file the command names is not on disk: {}", binary.string()));
    return sentences;
}

Observations unrunnable(const std::filesystem::path& binary) {
    if (Disk::isRunnable(binary) || !Disk::exists(binary))
        return {};
    return {{binary.string(), Disk::isDirectory(binary)
                                  ? say("this is a folder, so the Wendlow hook does not run")
                                  : say("this file may not be run by this user, so the Wendlow "
                                        "hook does not run")}};
}

} // namespace wendlow::Drift
