#include "Rules/MakeRules.h"

#include "Rules/RulesFaceModel.h"

#include <utility>

namespace wendlow {

std::unique_ptr<FaceModel> makeRules(EditorStore& store, FaceActions actions) {
    return std::make_unique<RulesFaceModel>(store.rules(), store.scopes(), store.pages(),
                                            std::move(actions));
}

} // namespace wendlow
