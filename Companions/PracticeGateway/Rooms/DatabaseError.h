#pragma once

#include <stdexcept>

namespace wendlow {

/// What SQLite refused, in its words. Thrown inside the practice gateway only: whoever dispatches
/// to the rooms turns it into a `failure`.
struct DatabaseError : std::runtime_error {
    using runtime_error::runtime_error;
};

} // namespace wendlow
