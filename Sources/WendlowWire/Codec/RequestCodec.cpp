#include "WireCodec.h"

#include "Codec/Decode.h"
#include "Codec/Writer.h"
#include "GatewayRequest.h"

namespace wendlow::WireCodec {

std::expected<std::string, EncodeError> encode(const GatewayRequest& request) {
    return Codec::Writer::encoded(request);
}

std::expected<GatewayRequest, DecodeError> decodeRequest(std::string_view json) {
    return Codec::decoded<GatewayRequest>(json);
}

} // namespace wendlow::WireCodec
