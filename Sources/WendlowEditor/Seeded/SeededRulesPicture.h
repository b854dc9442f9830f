#pragma once

#include "Model/EditorRulesPicture.h"
#include "Seeded/SeedWorlds.h"
#include "Seeded/SeededQuery.h"

#include <string>

namespace wendlow::SeededRulesPictures {

/// The rules of a made-up world at a scope, as a daemon would compile and file them.
EditorRulesPicture picture(const SeededContents& contents, const SeededQuery& query,
                           const std::string& scope);

} // namespace wendlow::SeededRulesPictures
