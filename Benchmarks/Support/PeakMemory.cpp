#include "Support/PeakMemory.h"

#include <fstream>
#include <malloc.h>
#include <string>
#include <string_view>

namespace wendlow::benchmarks {

namespace {

std::size_t statusKilobytes(std::string_view field) {
    std::ifstream status("/proc/self/status");
    std::string name;
    while (status >> name) {
        std::size_t value = 0;
        if (name == field && status >> value) {
            return value;
        }
        std::getline(status, name);
    }
    return 0;
}

bool resetPeak() {
    std::ofstream references("/proc/self/clear_refs");
    references << "5" << std::flush;
    return references.good();
}

} // namespace

std::size_t peakMemory(const std::function<void()>& work) {
    malloc_trim(0);
    if (!resetPeak()) {
        return 0;
    }
    const auto before = statusKilobytes("VmRSS:");
    work();
    const auto peak = statusKilobytes("VmHWM:");
    return peak > before ? (peak - before) * 1024 : 0;
}

} // namespace wendlow::benchmarks
