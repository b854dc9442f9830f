// Connects and disconnects Codex with the two files that the input holds, on a real home in memory:
// whatever they are, they come back, or are refused and left alone.

#include "CodexRoundTrip.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const wendlow::testing::InMemory memory;
    static const wendlow::testing::CodexHome home;
    // The hooks file first, then the configuration, with a zero byte between them; "@ours" and the
    // other marks of `CodexHome` stand for what cannot be guessed.
    const std::string input(reinterpret_cast<const char*>(data), size);
    const auto end = input.find('\0');
    const std::string hooks = home.filled(input.substr(0, end));
    const std::string config =
        home.filled(end == std::string::npos ? std::string() : input.substr(end + 1));
    if (const auto broken = wendlow::testing::brokenCodexRoundTrip(home, hooks, config)) {
        std::fprintf(stderr, "%s\n", broken->c_str());
        std::abort();
    }
    return 0;
}
