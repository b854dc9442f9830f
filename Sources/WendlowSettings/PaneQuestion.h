#pragma once

#include "Client.h"
#include "TranslationContext.h"

#include <QCoroTask>

#include <memory>
#include <string>

/// What the panes ask the daemon. UI thread.
namespace wendlow::PaneQuestion {

/// Asks, and holds the client until the answer: who asked may be gone by then, and looks for that
/// first.
QCoro::Task<GatewayResponse> ask(std::shared_ptr<WendlowClient> client, GatewayRequest request);

/// What a person reads of an answer that is no `ok`: why the daemon did not do or tell it. Empty
/// for `ok`.
std::string refusal(const GatewayResponse& answer);
/// The same for the log, which has one language.
std::string logged(const GatewayResponse& answer);

/// Said of an answer that is no answer to what was asked.
inline constexpr const char* notUnderstood =
    sayLater("Wendlow answered that with something this app does not understand.");

} // namespace wendlow::PaneQuestion
