#include "Inventory.h"

#include "Say.h"

#include <utility>

namespace wendlow {

namespace {

std::optional<FileDate> known(FileDate date) {
    return date == distantPast ? std::nullopt : std::optional(date);
}

} // namespace

Inventory Inventory::of(ProjectReport projects, MemoryFileReport memoryFiles) {
    Inventory inventory;
    inventory.source = std::move(projects.source).value_or(std::string());
    inventory.projectsNote = std::move(projects.note).value_or(std::string());
    if (projects.projects.empty() && inventory.projectsNote.empty())
        inventory.projectsNote = say("no projects found");
    inventory.projects.reserve(projects.projects.size());
    for (ConnectorProject& project : projects.projects) {
        inventory.projects.push_back({.path = std::move(project.path),
                                      .memory = std::move(project.memory),
                                      .bytes = std::nullopt,
                                      .date = known(project.lastActivity)});
    }
    if (memoryFiles.files.empty())
        inventory.memoryNote = say("no memory files found");
    for (ConnectorMemoryFile& file : memoryFiles.files) {
        inventory.memoryFiles.push_back({.path = std::move(file.path),
                                         .memory = std::nullopt,
                                         .bytes = file.bytes,
                                         .date = file.modified.and_then(known)});
    }
    return inventory;
}

} // namespace wendlow
