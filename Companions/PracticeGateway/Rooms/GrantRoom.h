#pragma once

#include <chrono>
#include <expected>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Clock.h"
#include "ControlRequest.h"
#include "GatewayResponse.h"
#include "ReadRequest.h"
#include "RecordingRoom.h"

namespace wendlow {

/// What becomes of permissions that are asked for, so that whoever asks can be tried.
struct GrantManner {
    std::vector<std::string> denied;    ///< kinds that are refused
    std::vector<std::string> withheld;  ///< kinds of which nothing is said
    std::chrono::milliseconds after{0}; ///< how long a person takes to grant one

    /// The kinds of words with commas: "screen_recording", "accessibility", "microphone". The
    /// unknown word is the error.
    static std::expected<std::vector<std::string>, std::string> kinds(std::string_view words);
};

/// Whether it runs: the platform's permissions, health, and the model that reads the captures.
/// Nothing is captured here, so a permission is had for the asking, unless
/// the manner is another. Throws `DatabaseError`.
class GrantRoom {
public:
    static std::string_view schema();

    GrantRoom(PracticeDatabase& database, RecordingRoom& recording, Clock clock);

    /// Screen recording, accessibility and microphone; "granted", "denied" or "undetermined".
    GatewayResponse answer(const ReadCase::Grants& request);
    GatewayResponse answer(const ControlCase::RequestGrant& request);
    /// "healthy", or what keeps it from that: a missing grant, then a pause.
    GatewayResponse answer(const ReadCase::Health& request);
    GatewayResponse answer(const ReadCase::ClassifierStatus& request);

    void grantAll();
    /// From now on.
    void setManner(GrantManner manner) { m_manner = std::move(manner); }

private:
    std::vector<GrantRow> grants();
    void set(std::string_view kind, std::string_view state);
    void grantWhatIsDue();

    PracticeDatabase& m_database;
    RecordingRoom& m_recording;
    Clock m_clock;
    GrantManner m_manner;
    /// When those come that have been asked for.
    std::map<std::string, std::chrono::system_clock::time_point> m_due;
};

} // namespace wendlow
