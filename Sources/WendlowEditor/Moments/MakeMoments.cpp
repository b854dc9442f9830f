#include "Moments/MakeMoments.h"

#include "Moments/MomentsFaceModel.h"

#include <utility>

namespace wendlow {

std::unique_ptr<FaceModel> makeMoments(EditorStore& store, FaceActions actions) {
    return std::make_unique<MomentsFaceModel>(store.pages(), store.tiles(), std::move(actions));
}

} // namespace wendlow
