#pragma once

namespace wendlow {

/// How much a fresh database is given: one working day, years of somebody who keeps everything, or
/// a day's memories with years of moments.
enum class FillSize { day, power, moments };

} // namespace wendlow
