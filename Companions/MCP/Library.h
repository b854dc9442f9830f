#pragma once

#include <expected>
#include <memory>
#include <optional>
#include <string>

#include <QCoroTask>

#include "GatewayCall.h"

/// What a client may lay before its model without a tool: memories and rules modules as resources,
/// and the question after what is remembered as a prompt. Results are JSON, without the envelope.
namespace wendlow::Library {

struct Fault {
    enum class Kind { notFound, refused, badArgument };
    Kind kind = Kind::refused;
    std::string sentence;
};

/// Nothing at all where the call was given up.
using Outcome = std::optional<std::expected<std::string, Fault>>;
using Call = std::shared_ptr<GatewayCall>;

/// A page of memories, the newest first; before the first page the rules modules. `cursor` is what
/// an earlier page gave.
QCoro::Task<Outcome> list(Call call, std::optional<std::string> cursor);
/// The forms of the addresses: "wendlow://memory/m29", "wendlow://rules/work/atlas/testing" for the
/// module of that name at /work/atlas.
std::string templates();
QCoro::Task<Outcome> read(Call call, std::string uri);

std::string prompts();
QCoro::Task<Outcome> prompt(Call call, std::string name, std::optional<std::string> about);

} // namespace wendlow::Library
