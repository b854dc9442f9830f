#include "DoorRedial.h"

#include <algorithm>

namespace wendlow {

std::int64_t DoorRedial::budgetSeconds() const {
    return std::max<std::int64_t>(1,
                                  std::chrono::duration_cast<std::chrono::seconds>(budget).count());
}

} // namespace wendlow
