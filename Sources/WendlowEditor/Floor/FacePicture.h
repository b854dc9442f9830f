#pragma once

#include <functional>
#include <vector>

namespace wendlow {

/// A state of a face as it is shown in pictures. The pictures of one world are taken one after the
/// other, each from what the one before has left; the first of them from the face as it opens.
struct FacePicture {
    enum class World {
        silent,   ///< a daemon that never gets round to an answer
        warming,  ///< a daemon whose search index is not ready
        refusing, ///< a daemon that understands nothing
        empty,
        full,
    };
    enum class Widths { own, every };

    const char* name; ///< among the pictures of all faces
    World world = World::full;
    Widths widths = Widths::own;
    bool wholeRail = false;                ///< from here on the rail shows all places
    std::function<void()> stand = nullptr; ///< brings the face into the state; none: it is in it
    std::function<void()> leave = nullptr; ///< when the picture has been taken
};
using FacePictures = std::vector<FacePicture>;

} // namespace wendlow
