#pragma once

#include "Floor/FaceModel.h"
#include "Store/EditorStore.h"

#include <memory>

namespace wendlow {

/// The face of the rules over this store, which must outlive it.
std::unique_ptr<FaceModel> makeRules(EditorStore& store, FaceActions actions);

} // namespace wendlow
