#pragma once

#include <cstddef>
#include <functional>

namespace wendlow::benchmarks {

/// How many bytes of this process's resident memory `work` needed at its peak, beyond what was
/// there before; memory that an earlier work gave back does not count as there. Linux; 0 where the
/// kernel does not let the peak be reset.
std::size_t peakMemory(const std::function<void()>& work);

} // namespace wendlow::benchmarks
