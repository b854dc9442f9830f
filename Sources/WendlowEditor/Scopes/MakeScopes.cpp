#include "Scopes/MakeScopes.h"

#include "Scopes/ScopesFaceModel.h"

#include <utility>

namespace wendlow {

std::unique_ptr<FaceModel> makeScopes(EditorStore& store, FaceActions actions) {
    return std::make_unique<ScopesFaceModel>(store.scopes(), std::move(actions));
}

} // namespace wendlow
