// Any configuration with comments: what is installed reads and stays as it is when installed again;
// no comment goes without being counted; and what was not there before goes again without a trace.

#include "JSONChecks.h"
#include "OpenCodeRoundTrip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const wendlow::OpenCodeMCP mcp(
        wendlow::OpenCodePaths::under("/home/me", "/A/Wendlow.app"));
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto broken = wendlow::testing::brokenOpenCodeRoundTrip(mcp, bytes);
    wendlow::fuzz::require(!broken, broken.value_or(""), bytes);
    return 0;
}
