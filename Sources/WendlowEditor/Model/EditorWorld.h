#pragma once

#include "Model/EditorAsk.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace wendlow {

/// Which data the window shows.
enum class EditorWorld { dayZero, someData, powerUser, realData };
inline constexpr std::array editorWorlds{EditorWorld::dayZero, EditorWorld::someData,
                                         EditorWorld::powerUser, EditorWorld::realData};
/// As the World menu names it.
std::string_view label(EditorWorld world);

/// The worlds that are made up.
enum class SeedWorld { dayZero, someData, powerUser };
std::string_view text(SeedWorld world);
/// Nothing for the real data.
std::optional<SeedWorld> seedWorld(EditorWorld world);

/// The identity of one browse: a face's query runs again exactly when this changes.
struct EditorQueryKey {
    EditorWorld world = EditorWorld::realData;
    std::int64_t generation = 0;
    EditorAsk ask;

    bool operator==(const EditorQueryKey&) const = default;
};

} // namespace wendlow
