#pragma once

#include <functional>
#include <string>
#include <tuple>

#include "GatewayRequest.h"
#include "GatewayResponse.h"

/// From a request to the room that answers it. A room is any class with one overload of
/// `GatewayResponse answer(const Case&)` for each case it serves.
namespace wendlow::Dispatch {

template<class Room, class Case>
concept Answers = requires(Room& room, const Case& which) {
    { room.answer(which) } -> std::convertible_to<GatewayResponse>;
};

/// A case that no room serves.
template<class Case> GatewayResponse answerCase(const Case& /*which*/) {
    return AnswerCase::Unimplemented{std::string(Case::verb)};
}

/// The first room that serves this case answers it.
template<class Case, class Room, class... Rooms>
GatewayResponse answerCase(const Case& which, Room& room, Rooms&... others) {
    if constexpr (Answers<Room, Case>)
        return room.answer(which);
    else
        return answerCase(which, others...);
}

template<class... Rooms>
GatewayResponse answer(const GatewayRequest& request, const std::tuple<Rooms&...>& rooms) {
    const auto inRooms = [&](const auto& which) {
        return std::apply([&](auto&... room) { return answerCase(which, room...); }, rooms);
    };
    return std::visit([&](const auto& envelope) { return std::visit(inRooms, envelope._0); },
                      request);
}

} // namespace wendlow::Dispatch
