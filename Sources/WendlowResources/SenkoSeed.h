#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <variant>

#include "MeetingModels.h"

/// Brings the data of the speaker model from the application's bundle into the support folder,
/// where it is used and can be replaced.
namespace wendlow::SenkoSeed {

/// Of the data, in the bundle and in the support folder.
inline constexpr std::string_view folderName = MeetingModels::senkoName;

struct Seeded {
    std::int64_t files = 0;
    std::int64_t bytes = 0;
    bool operator==(const Seeded&) const = default;
};
/// The bundle brings no data; the path where it should be.
struct BundleMissing {
    std::string text;
    bool operator==(const BundleMissing&) const = default;
};
struct Failed {
    std::string text;
    bool operator==(const Failed&) const = default;
};
/// It is there already, whole.
struct Present {
    bool operator==(const Present&) const = default;
};
using Outcome = std::variant<Seeded, BundleMissing, Failed, Present>;

/// Copies beside the place, looks at the copy, and moves it there, so that what stands there is
/// whole at any moment, whenever the process ends and however many do this at once.
Outcome seed(const std::filesystem::path& bundleDir, const std::filesystem::path& supportDir);

} // namespace wendlow::SenkoSeed
