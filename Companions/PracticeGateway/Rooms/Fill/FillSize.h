#pragma once

namespace wendlow {

/// How much a fresh database is given: one working day, or years of somebody who keeps everything.
enum class FillSize { day, power };

} // namespace wendlow
