#pragma once

#include <cstddef>

#include "GatewayResponse.h"

namespace wendlow::benchmarks {

/// Answers as large as a full store gives them, the same at every call. Texts are words of many
/// lengths, some with letters beyond ASCII and with line ends.
namespace SampleAnswers {

GatewayResponse textBrowse(std::size_t rows);
GatewayResponse cards();
GatewayResponse sessions();
GatewayResponse presence();
GatewayResponse spanHours();
GatewayResponse stretches();
GatewayResponse scopeBoard();
GatewayResponse modBoard();
GatewayResponse transcript();
GatewayResponse images();
GatewayResponse primed();

} // namespace SampleAnswers
} // namespace wendlow::benchmarks
