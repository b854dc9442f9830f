#include "Shell/FaceList.h"

// Written by the build from the list of the faces' folders.
#include "FacesThereAre.h"
#include "Shell/BlankFace.h"

#include <utility>

namespace wendlow {

std::vector<std::unique_ptr<FaceModel>> FaceList::make(EditorStore& store,
                                                       const FaceActions& actions) {
    std::vector<std::unique_ptr<FaceModel>> faces;
    faces.reserve(EditorFaces::all.size());
    for (const EditorFace face : EditorFaces::all)
        faces.push_back(std::make_unique<BlankFace>(face, store));
    for (const auto& makeFace : facesThereAre) {
        std::unique_ptr<FaceModel> made = makeFace(store, actions);
        faces[EditorFaces::place(made->face())] = std::move(made);
    }
    return faces;
}

} // namespace wendlow
