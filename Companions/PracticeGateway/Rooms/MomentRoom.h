#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "ActivityLedger.h"
#include "Clock.h"
#include "DocumentStore.h"
#include "GatewayResponse.h"
#include "KeepRoom.h"
#include "ReadRequest.h"
#include "ScreenPicture.h"

namespace wendlow {

/// What a moment has beside its document.
struct MomentRecord {
    std::int64_t moment = 0; ///< the id, as a number
    std::int64_t number = 0; ///< of its document
    std::string day;
    std::int64_t chapter = 0;
    std::string app; ///< as a person calls it
    std::string window;
    std::string titleSource = "window";
    std::optional<std::string> site = std::nullopt;
    std::int64_t bytes = 0;                             ///< of its picture
    std::optional<std::int64_t> seconds = std::nullopt; ///< of a session
    std::optional<std::int64_t> turns = std::nullopt;   ///< of a session
};

/// Moments, the chapters they stand in, and their pictures. A picture is drawn when it is asked
/// for, from what the moment says, and always the same. Throws `DatabaseError`.
class MomentRoom {
public:
    static std::string_view schema();

    MomentRoom(DocumentStore& documents, ActivityLedger& ledger, KeepRoom& keep, Clock clock);

    GatewayResponse answer(const ReadCase::GetMoment& request);
    /// By a chapter's id, "c" and its number.
    GatewayResponse answer(const ReadCase::GetChapter& request);
    GatewayResponse answer(const ReadCase::TitleTrace& request);
    /// An empty window stands for the whole screen.
    GatewayResponse answer(const ReadCase::GetScreen& request);
    GatewayResponse answer(const ReadCase::GetThumbnail& request);
    /// Each in its place, with a note in place of a picture that there is not.
    GatewayResponse answer(const ReadCase::OpenScreens& request);
    /// Of every host with a dot in its name.
    GatewayResponse answer(const ReadCase::Favicons& request);
    /// A person, a program or any other name, by how often and when it was last met.
    GatewayResponse answer(const ReadCase::GetEntity& request);
    /// The sessions of the scope in which `session` worked, or of all; the newest ten, or with
    /// `older` the ones before those.
    GatewayResponse answer(const ReadCase::SessionList& request);

    std::optional<MomentRecord> find(std::int64_t moment);
    void put(const MomentRecord& record);
    /// The highest id there is; 0 for none.
    std::int64_t last();

private:
    /// PNG, or the sentence that tells why there is none.
    std::expected<std::string, std::string> picture(std::int64_t moment, std::string_view window,
                                                    ScreenPicture::Size size);

    DocumentStore& m_documents;
    ActivityLedger& m_ledger;
    KeepRoom& m_keep;
    Clock m_clock;
    Statement m_put;
};

} // namespace wendlow
