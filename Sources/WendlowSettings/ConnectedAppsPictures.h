#pragma once

#include "Pane.h"

namespace wendlow {

class ConnectedAppsModel;

/// The states of the Connected Apps pane for pictures: each row open, and its long table unfolded.
namespace ConnectedAppsPictures {

/// Shows and saves one after the other, and leaves the rows as they were. `save` is to wait until
/// what a row shows has been read.
void take(ConnectedAppsModel& model, const PanePictures::Save& save);

} // namespace ConnectedAppsPictures

} // namespace wendlow
