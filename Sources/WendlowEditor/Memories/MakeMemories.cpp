#include "Memories/MakeMemories.h"

#include "Memories/MemoryFaceModel.h"

#include <utility>

namespace wendlow {

std::unique_ptr<FaceModel> makeMemories(EditorStore& store, FaceActions actions) {
    return std::make_unique<MemoryFaceModel>(store.pages(), std::move(actions));
}

} // namespace wendlow
