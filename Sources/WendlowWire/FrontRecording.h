#pragma once

#include <boost/describe/enum.hpp>

namespace wendlow {

/// How the front window is being recorded; the case's name on the wire.
enum class FrontRecording { full, titleOnly, blocked, unknown, none };
BOOST_DESCRIBE_ENUM(FrontRecording, full, titleOnly, blocked, unknown, none)

} // namespace wendlow
