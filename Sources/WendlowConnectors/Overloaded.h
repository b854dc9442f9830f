#pragma once

namespace wendlow {

/// One visitor from several lambdas, for `std::visit`.
template<class... Cases> struct Overloaded : Cases... {
    using Cases::operator()...;
};

} // namespace wendlow
