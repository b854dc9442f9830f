#pragma once

#include <expected>
#include <string>
#include <string_view>

#include <boost/json/storage_ptr.hpp>
#include <boost/json/value.hpp>

namespace wendlow::Codec {

/// The JSON document in `text`, every double exactly as it is spelled. An error is a sentence.
/// Nesting is bounded. May throw when memory runs out.
std::expected<boost::json::value, std::string> document(std::string_view text,
                                                        boost::json::storage_ptr storage);

} // namespace wendlow::Codec
