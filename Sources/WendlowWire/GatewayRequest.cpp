#include "GatewayRequest.h"

#include <utility>

#include <fmt/format.h>

namespace wendlow {

WENDLOW_CASES_DEFINED(ReadRequest)
WENDLOW_CASES_DEFINED(ControlRequest)
WENDLOW_CASES_DEFINED(NotesRequest)
WENDLOW_CASES_DEFINED(GatewayRequest)

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

namespace {

template<class... Cases> constexpr auto verbsOf(const std::variant<Cases...>* /*request*/) {
    return std::array<std::string_view, sizeof...(Cases)>{Cases::verb...};
}

} // namespace

const std::array<std::string_view, 11> NotesRequest::allVerbs =
    verbsOf(static_cast<const NotesRequest::variant*>(nullptr));

// In place and out of line: where it sees a moved-from variant of a known case die, GCC 12 warns of
// the other cases' members.
GatewayRequest::GatewayRequest(ReadRequest request)
    : variant(std::in_place_type<GatewayCase::Read>, std::move(request)) {}

GatewayRequest::GatewayRequest(ControlRequest request)
    : variant(std::in_place_type<GatewayCase::Control>, std::move(request)) {}

GatewayRequest::GatewayRequest(NotesRequest request)
    : variant(std::in_place_type<GatewayCase::Notes>, std::move(request)) {}

GatewayRequest::GatewayRequest(DiagnosticRequest request)
    : variant(std::in_place_type<GatewayCase::Diagnostic>, std::move(request)) {}

std::string_view GatewayRequest::verb() const {
    return std::visit([](const auto& envelope) { return envelope._0.verb(); }, *this);
}

std::string GatewayRequest::caseName() const {
    const auto both = [](const auto& envelope) {
        const std::string_view name =
            std::visit([](const auto& which) { return which.wireName; }, envelope._0);
        return fmt::format("{}.{}", envelope.wireName, name);
    };
    return std::visit(both, *this);
}

} // namespace wendlow
