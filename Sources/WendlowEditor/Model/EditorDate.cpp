#include "Model/EditorDate.h"

#include <algorithm>
#include <cmath>

namespace wendlow {

EditorDate editorDate(double secondsSince1970) {
    using Ticks = EditorDate::duration;
    using Seconds = std::chrono::duration<double>;
    if (std::isnan(secondsSince1970))
        return {};
    // The ends themselves round upwards as doubles, out of the range.
    constexpr double most = Seconds(Ticks::max()).count() * 0.999'999;
    return EditorDate(
        std::chrono::duration_cast<Ticks>(Seconds(std::clamp(secondsSince1970, -most, most))));
}

} // namespace wendlow
