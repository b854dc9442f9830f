#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "ControlRequest.h"
#include "Described.h"
#include "DiagnosticRequest.h"
#include "NotesRequest.h"
#include "ReadRequest.h"

namespace wendlow {

namespace GatewayCase {

struct Read {
    ReadRequest _0;
    WENDLOW_CASE(Read, "read", _0);
};

struct Control {
    ControlRequest _0;
    WENDLOW_CASE(Control, "control", _0);
};

struct Notes {
    NotesRequest _0;
    WENDLOW_CASE(Notes, "notes", _0);
};

struct Diagnostic {
    DiagnosticRequest _0;
    WENDLOW_CASE(Diagnostic, "diagnostic", _0);
};

} // namespace GatewayCase

/// The envelope of everything that is asked of the daemon. Plain data, free to cross threads.
struct GatewayRequest : std::variant<GatewayCase::Read, GatewayCase::Control, GatewayCase::Notes,
                                     GatewayCase::Diagnostic> {
    WENDLOW_CASES(GatewayRequest);
    GatewayRequest(ReadRequest request);
    GatewayRequest(ControlRequest request);
    GatewayRequest(NotesRequest request);
    GatewayRequest(DiagnosticRequest request);

    static constexpr std::string_view typeName = "GatewayRequest";

    /// The payload's verb, a snake-case word that names the request in logs and refusals.
    std::string_view verb() const;

    /// The names of both cases on the wire, as "read.textBrowse".
    std::string caseName() const;
};

} // namespace wendlow
