#include "Meetings/MakeMeetings.h"

#include "Meetings/MeetingsFaceModel.h"

namespace wendlow {

std::unique_ptr<FaceModel> makeMeetings(EditorStore& store, FaceActions /*actions*/) {
    return std::make_unique<MeetingsFaceModel>(store.meetings());
}

} // namespace wendlow
