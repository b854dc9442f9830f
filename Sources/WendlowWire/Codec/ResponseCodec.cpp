#include "WireCodec.h"

#include "Codec/Decode.h"
#include "Codec/Writer.h"
#include "GatewayEvent.h"
#include "GatewayResponse.h"

namespace wendlow::WireCodec {

std::expected<std::string, EncodeError> encode(const GatewayResponse& response) {
    return Codec::Writer::encoded(response);
}

std::expected<GatewayResponse, DecodeError> decodeResponse(std::string_view json) {
    return Codec::decoded<GatewayResponse>(json);
}

std::expected<std::string, EncodeError> encode(const GatewayEvent& event) {
    return Codec::Writer::encoded(event);
}

std::expected<GatewayEvent, DecodeError> decodeEvent(std::string_view json) {
    return Codec::decoded<GatewayEvent>(json);
}

} // namespace wendlow::WireCodec
