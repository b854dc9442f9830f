#pragma once

#include <algorithm>
#include <exception>
#include <expected>
#include <string_view>

#include <boost/json/monotonic_resource.hpp>

#include "Codec/Document.h"
#include "Codec/Reader.h"

namespace wendlow::Codec {

template<class T> std::expected<T, DecodeError> decoded(std::string_view json) try {
    // A document takes about as much as its text, so that it comes in few pieces.
    boost::json::monotonic_resource memory(std::max<std::size_t>(json.size(), 1024));
    const auto parsed = document(json, &memory);
    if (!parsed)
        return std::unexpected(DecodeError{{}, parsed.error()});
    T value;
    Reader reader;
    if (!reader.read(*parsed, value))
        return std::unexpected(reader.takeError());
    return value;
} catch (const std::exception& error) {
    // Only a message beyond the memory's measure comes here.
    return std::unexpected(DecodeError{{}, error.what()});
}

} // namespace wendlow::Codec
