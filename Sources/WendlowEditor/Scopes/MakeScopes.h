#pragma once

#include "Floor/FaceModel.h"
#include "Store/EditorStore.h"

#include <memory>

namespace wendlow {

/// The face of the scopes over this store, which must outlive it.
std::unique_ptr<FaceModel> makeScopes(EditorStore& store, FaceActions actions);

} // namespace wendlow
