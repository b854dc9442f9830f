#pragma once

#include "Pane.h"

namespace wendlow::SettingsPictures {

/// The states of the panes that ask the daemon, for pictures: each over answers that are made up
/// for it, as the daemon would give them.
void takeGeneral(const PanePictures& pictures);
void takeRecording(const PanePictures& pictures);
void takeRecovery(const PanePictures& pictures);

} // namespace wendlow::SettingsPictures
