// Any file that scans: what is installed reads, stays as it is when installed again, and goes again
// without a trace, in Cursor's hooks file as in its list of servers.

#include "CursorRoundTrip.h"
#include "JSONChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const wendlow::fuzz::ExactBytes bytes(data, size);
    const auto broken = wendlow::testing::brokenCursorRoundTrip(bytes.view());
    wendlow::fuzz::require(!broken, broken.value_or(""), bytes.view());
    return 0;
}
