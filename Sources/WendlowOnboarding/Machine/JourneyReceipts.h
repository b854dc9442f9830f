#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// What outlives a journey that is broken off. `support` is the product's own folder. All of them
/// block on the disk, and a failure is no failure: the journey asks again.
namespace wendlow {

/// A file that holds nothing: that it is there is the fact.
namespace TermsReceipt {

std::filesystem::path path(const std::filesystem::path& support);
bool isAgreed(const std::filesystem::path& at);
void markAgreed(const std::filesystem::path& at);

} // namespace TermsReceipt

/// Likewise.
namespace RecoveryKeyReceipt {

std::filesystem::path path(const std::filesystem::path& support);
bool isPassed(const std::filesystem::path& at);
void markPassed(const std::filesystem::path& at);

} // namespace RecoveryKeyReceipt

/// The ids of the tools that a journey has plugged in, so that a cancel knows what to unplug: a
/// JSON array of strings.
namespace JourneyWiringReceipt {

std::filesystem::path path(const std::filesystem::path& support);
/// Whatever cannot be read is an empty list.
std::vector<std::string> read(const std::filesystem::path& at);
void write(const std::vector<std::string>& ids, const std::filesystem::path& to);

} // namespace JourneyWiringReceipt
} // namespace wendlow
