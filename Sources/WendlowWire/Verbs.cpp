#include "GatewayRequest.h"

namespace wendlow {

namespace {

template<class Variant> std::string_view verbOfCase(const Variant& request) {
    return std::visit([](const auto& which) { return std::string_view(which.verb); }, request);
}

} // namespace

std::string_view ReadRequest::verb() const {
    return verbOfCase(*this);
}

std::string_view ControlRequest::verb() const {
    return verbOfCase(*this);
}

std::string_view NotesRequest::verb() const {
    return verbOfCase(*this);
}

std::string_view DiagnosticRequest::verb() const {
    return verbOfCase(*this);
}

std::string_view GatewayRequest::verb() const {
    return std::visit([](const auto& envelope) { return envelope._0.verb(); }, *this);
}

} // namespace wendlow
