#pragma once

#include <chrono>

namespace wendlow {

/// An instant as the Editor keeps it; whole parts of a second survive.
using EditorDate = std::chrono::system_clock::time_point;

/// From the wire's seconds since 1970. What is past the clock's range is held at its ends.
EditorDate editorDate(double secondsSince1970);

} // namespace wendlow
