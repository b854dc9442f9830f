#include "Model/EditorWorld.h"

#include "Say.h"

namespace wendlow {

std::string_view label(EditorWorld world) {
    switch (world) {
    case EditorWorld::dayZero:
        return say.view("Day zero");
    case EditorWorld::someData:
        return say.view("Some data");
    case EditorWorld::powerUser:
        return say.view("Power user");
    case EditorWorld::realData:
        return say.view("My real data");
    }
    return {};
}

std::string_view text(SeedWorld world) {
    switch (world) {
    case SeedWorld::dayZero:
        return "dayZero";
    case SeedWorld::someData:
        return "someData";
    case SeedWorld::powerUser:
        return "powerUser";
    }
    return {};
}

std::optional<SeedWorld> seedWorld(EditorWorld world) {
    switch (world) {
    case EditorWorld::dayZero:
        return SeedWorld::dayZero;
    case EditorWorld::someData:
        return SeedWorld::someData;
    case EditorWorld::powerUser:
        return SeedWorld::powerUser;
    case EditorWorld::realData:
        break;
    }
    return std::nullopt;
}

} // namespace wendlow
