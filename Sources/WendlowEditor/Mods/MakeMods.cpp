#include "Mods/MakeMods.h"

#include "Mods/ModsFaceModel.h"

namespace wendlow {

// As every face is made, also those that have a use for it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
std::unique_ptr<FaceModel> makeMods(EditorStore& store, FaceActions /*actions*/) {
    return std::make_unique<ModsFaceModel>(store.mods());
}

} // namespace wendlow
