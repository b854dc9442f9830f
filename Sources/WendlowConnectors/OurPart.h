#pragma once

namespace wendlow {

/// What of ours stands in a tool's file, for the sentences about it.
enum class OurPart { hookEntry, serverEntry, plugin };

} // namespace wendlow
