#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <boost/describe/enum.hpp>

#include "FilterValue.h"

namespace wendlow {

/// What can be found by its words; the names are those of the contract.
enum class DocumentKind : std::uint8_t { memory, moment, meeting };
BOOST_DESCRIBE_ENUM(DocumentKind, memory, moment, meeting)

/// A thing with words, filed at a scope.
struct Document {
    // GCC 12 calls a field that a designated initializer leaves out missing unless it has a
    // default. NOLINTBEGIN(readability-redundant-member-init)
    DocumentKind kind = DocumentKind::memory;
    std::string id; ///< one among all kinds
    std::string type = {};
    std::string scope = "/";
    double at = 0; ///< seconds since 1970
    std::string title = {};
    bool titled = true; ///< false: the title is the first line of the body, and follows it
    std::string why = {};
    std::string body = {};
    std::vector<FilterPair> filters = {};
    std::optional<std::string> app = std::nullopt;
    std::optional<std::string> abstract = std::nullopt;
    std::vector<std::string> files = {};
    std::optional<std::int64_t> fileCount = std::nullopt;
    bool framed = false;
    std::optional<std::string> sessionTool = std::nullopt;
    std::optional<std::string> writer = std::nullopt;
    std::optional<std::string> session = std::nullopt;
    std::optional<std::string> subagent = std::nullopt;
    // NOLINTEND(readability-redundant-member-init)
};

} // namespace wendlow
