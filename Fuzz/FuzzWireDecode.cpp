// Any bytes from the other side of the bus: each reader of the contract gives a value or an error
// in words, takes nothing that is no JSON, and what it took is written and read again as the same.

#include "Checks.h"
#include "GatewayEvent.h"
#include "GatewayRequest.h"
#include "GatewayResponse.h"
#include "WireCodec.h"

#include <boost/json/parse.hpp>

namespace {

using namespace wendlow;
using fuzz::require;

template<class Decode> void check(Decode decode, std::string_view bytes) {
    const auto value = decode(bytes);
    if (!value) {
        require(!value.error().sentence.empty(), "an error without words", bytes);
        return;
    }
    boost::json::error_code error;
    boost::json::parse(bytes, error);
    require(!error || error == boost::json::error::too_deep, "took what is no JSON", bytes);

    const auto written = WireCodec::encode(*value);
    require(written.has_value(), "took what it cannot write", bytes);
    const auto again = decode(*written);
    require(again == value, "another value came back", bytes);
    require(WireCodec::encode(*again) == written, "other bytes came back", bytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::ExactBytes input(data, size);
    check(WireCodec::decodeRequest, input.view());
    check(WireCodec::decodeResponse, input.view());
    check(WireCodec::decodeEvent, input.view());
    return 0;
}
