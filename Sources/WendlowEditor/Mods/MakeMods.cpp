#include "Mods/MakeMods.h"

#include "Mods/ModsFaceModel.h"

namespace wendlow {

std::unique_ptr<FaceModel> makeMods(EditorStore& store, FaceActions /*actions*/) {
    return std::make_unique<ModsFaceModel>(store.mods());
}

} // namespace wendlow
