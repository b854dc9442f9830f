#pragma once

#include <string_view>

#include "ControlRequest.h"
#include "GatewayResponse.h"
#include "ReadRequest.h"
#include "RecordingRoom.h"

namespace wendlow {

/// Whether it runs: the platform's permissions, health, and the model that reads the captures.
/// Nothing is captured here, so a permission is had for the asking. Throws `DatabaseError`.
class GrantRoom {
public:
    static std::string_view schema();

    GrantRoom(PracticeDatabase& database, RecordingRoom& recording);

    /// Screen recording, accessibility and microphone; "granted" or "undetermined".
    GatewayResponse answer(const ReadCase::Grants& request);
    GatewayResponse answer(const ControlCase::RequestGrant& request);
    /// "healthy", or what keeps it from that: a missing grant, then a pause.
    GatewayResponse answer(const ReadCase::Health& request);
    GatewayResponse answer(const ReadCase::ClassifierStatus& request);

    void grantAll();

private:
    std::vector<GrantRow> grants();

    PracticeDatabase& m_database;
    RecordingRoom& m_recording;
};

} // namespace wendlow
