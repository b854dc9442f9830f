// Any file that scans: what is installed reads, stays as it is when installed again, and goes again
// without a trace; no entry of anybody else's is touched.

#include "InstallRemoveProperty.h"
#include "JSONChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const wendlow::fuzz::ExactBytes bytes(data, size);
    const auto broken = wendlow::testing::brokenRoundTrip(bytes.view());
    wendlow::fuzz::require(!broken, broken.value_or(""), bytes.view());
    return 0;
}
