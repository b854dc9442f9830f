#pragma once

#include "Floor/FaceModel.h"
#include "Store/EditorStore.h"

#include <memory>
#include <vector>

namespace wendlow::FaceList {

/// All faces in the order of the rail. The store must outlive them.
std::vector<std::unique_ptr<FaceModel>> make(EditorStore& store, const FaceActions& actions);

} // namespace wendlow::FaceList
