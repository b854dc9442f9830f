#pragma once

#include "Floor/FaceModel.h"
#include "Store/EditorStore.h"

#include <memory>

namespace wendlow {

/// The face of the meetings over this store, which must outlive it.
std::unique_ptr<FaceModel> makeMeetings(EditorStore& store, FaceActions actions);

} // namespace wendlow
