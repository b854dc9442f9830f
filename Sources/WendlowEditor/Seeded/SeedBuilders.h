#pragma once

#include "Seeded/SeedWorlds.h"

namespace wendlow::SeedWorlds {

/// A small world, written by hand: a week of one person's work.
SeededContents someData();

/// A large world, made by rule: a year of a person who keeps everything.
SeededContents powerUser();

/// Noon of a fixed day, so many days before the newest thing of a made-up world.
EditorDate daysAgo(int days);

} // namespace wendlow::SeedWorlds
