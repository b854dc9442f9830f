#include "Meetings/MakeMeetings.h"

#include "Meetings/MeetingsFaceModel.h"

namespace wendlow {

// As every face is made, also those that have a use for it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
std::unique_ptr<FaceModel> makeMeetings(EditorStore& store, FaceActions /*actions*/) {
    return std::make_unique<MeetingsFaceModel>(store.meetings());
}

} // namespace wendlow
