#pragma once

#include "ConfigFile/Unreadable.h"
#include "Observation.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace wendlow {

/// One of a tool's files, read once for one verb or one scan. Every later look at its bytes is at
/// these, so that a plan is made from what was judged.
struct ToolFile {
    /// A plan has to know where the file really lies, which is one more question to the system.
    enum class Purpose { scan, plan };

    std::filesystem::path path;         ///< where it really lies, links resolved; none for a scan
    std::string label;                  ///< the path as configured, for sentences
    std::optional<std::string> bytes;   ///< nothing: there is no file, or it could not be read
    std::optional<std::string> failure; ///< why a file that is there could not be read

    static ToolFile read(const std::filesystem::path& configured, Purpose purpose);

    /// What a plan starts from: the bytes, or `seed` where there is no file.
    std::string_view bytesOr(std::string_view seed) const { return bytes ? *bytes : seed; }
    /// For a block's `find`: a file that could not be read counts as none.
    std::optional<std::string_view> view() const;

    /// Why no verb may plan for this file: it could not be read, or it is `unreadable` as
    /// `language`, which is said. Nothing is ever planned over bytes that nobody saw.
    std::optional<Observation> refusal(const std::optional<Unreadable>& unreadable,
                                       const char* language = "JSON") const;
};

} // namespace wendlow
