// What the live store reads beside its pages: details, meetings, transcripts, mods, thumbnails.

#include "GatewayWire.h"
#include "Live/EditorLiveStore.h"
#include "Live/MeetingList.h"

#include <algorithm>
#include <utility>

#include <QByteArray>

namespace wendlow {

namespace {

using Lane = EditorLink::Lane;

template<class Case> const Case* as(const EditorLink::Reply& reply) {
    return std::get_if<Case>(&reply.response);
}

EditorTranscript transcriptOf(const MeetingTranscriptAnswer& wire) {
    EditorTranscript made{
        .id = wire.meeting, .title = wire.title, .titleSource = wire.titleSource, .who = wire.who};
    made.lines.reserve(wire.lines.size());
    for (const TranscriptLineRow& row : wire.lines)
        made.lines.push_back({.id = row.rowid,
                              .speaker = row.speaker,
                              .text = row.text,
                              .witness = row.witness,
                              .at = row.at});
    return made;
}

EditorModsBoard board(const ModBoardAnswer& wire) {
    EditorModsBoard made;
    for (const auto& mod : wire.mods) {
        auto& installed = made.mods.emplace_back(EditorInstalledMod{.slug = mod.slug,
                                                                    .scope = mod.scope,
                                                                    .rev = mod.rev,
                                                                    .hint = mod.hint,
                                                                    .files = mod.files});
        for (const auto& [name, trigger, wake, tools, maxMutations, laneState] : mod.behaviors)
            installed.behaviors.push_back({name, trigger, wake, tools, maxMutations, laneState});
    }
    for (const auto& [slug, scope, behavior, reason] : wire.rejected)
        made.rejected.push_back({slug, scope, behavior, reason});
    for (const auto& run : wire.runs)
        made.runs.push_back({run.mod, run.behavior, run.scope, run.trigger,
                             editorDate(run.startedAt), editorDate(run.endedAt), run.exit,
                             run.turns, run.outcome, run.outputPath, run.report, run.mutations});
    return made;
}

/// The picture in an answer. Nothing: there is none, or it does not decode.
std::optional<EditorTile> picture(const EditorLink::Reply& reply) {
    const auto* const image = as<AnswerCase::Image>(reply);
    if (image == nullptr)
        return std::nullopt;
    const auto decoded = QByteArray::fromBase64Encoding(QByteArray::fromStdString(image->base64),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return std::nullopt;
    return EditorTile{.image = (*decoded).toStdString()};
}

} // namespace

QCoro::Task<std::optional<EditorMemoryDetail>> EditorLiveStore::detail(std::string id) {
    const ReadRequest request = ReadCase::Grab{.id = std::move(id)};
    const EditorLink::Reply reply = co_await send(request, Lane::now);
    const auto* const thing = as<AnswerCase::Thing>(reply);
    if (thing == nullptr || !thing->_0)
        co_return std::nullopt;
    const Card& card = *thing->_0;
    co_return EditorMemoryDetail{.id = card.id, .why = card.why, .body = card.snippet.value_or("")};
}

void EditorLiveStore::loadMeetings() {
    if (m_meetingsLoaded || m_loadingMeetings)
        return;
    // Runs on by itself, and ends by itself where the store goes.
    [[maybe_unused]] const auto task = readMeetings();
}

QCoro::Task<> EditorLiveStore::readMeetings() {
    const Lifetime::Watch life = m_life.watch();
    if (std::exchange(m_loadingMeetings, true))
        co_return;
    EditorMeetingsResult result = co_await fetchMeetings();
    if (life.expired())
        co_return;
    m_loadingMeetings = false;
    m_meetingsLoaded = result.has_value();
    if (result) {
        m_meetingCount = static_cast<std::int64_t>(result->size());
        m_meetings = *std::move(result);
        m_meetingsError.reset();
    } else {
        m_meetingsError = std::move(result.error());
    }
    Q_EMIT changed();
}

QCoro::Task<EditorMeetingsResult> EditorLiveStore::fetchMeetings() {
    const ReadRequest request = ReadCase::MeetingList();
    const EditorLink::Reply reply = co_await send(request, Lane::later);
    if (const auto* const list = as<AnswerCase::Text>(reply))
        co_return MeetingList::parse(list->_0);
    if (const auto* const failure = as<AnswerCase::Failure>(reply))
        co_return std::unexpected(failure->message);
    co_return std::unexpected(
        "Wendlow answered the meeting list with something this mod does not understand.");
}

QCoro::Task<EditorTranscriptResult> EditorLiveStore::transcript(std::string id) {
    const ReadRequest request = ReadCase::MeetingTranscript{.id = id};
    const EditorLink::Reply reply = co_await send(request, Lane::now);
    if (const auto* const words = as<AnswerCase::Transcript>(reply))
        co_return transcriptOf(words->_0);
    if (const auto* const failure = as<AnswerCase::Failure>(reply)) {
        // A meeting in which nobody spoke is no error.
        if (failure->message.starts_with("no transcript"))
            co_return EditorTranscript{.id = std::move(id)};
        co_return std::unexpected(failure->message);
    }
    co_return std::unexpected("Wendlow answered with something this mod does not understand.");
}

void EditorLiveStore::loadMods() {
    if (m_modsLoaded || m_loadingMods)
        return;
    // Runs on by itself, and ends by itself where the store goes.
    [[maybe_unused]] const auto task = readMods();
}

QCoro::Task<> EditorLiveStore::readMods() {
    const Lifetime::Watch life = m_life.watch();
    m_loadingMods = true;
    const ReadRequest request = ReadCase::ModBoard();
    const EditorLink::Reply reply = co_await send(request, Lane::now);
    if (life.expired())
        co_return;
    m_loadingMods = false;
    const auto* const answer = as<AnswerCase::ModBoard>(reply);
    const auto* const failure = as<AnswerCase::Failure>(reply);
    m_modsLoaded = answer != nullptr;
    if (answer != nullptr) {
        m_modsBoard = board(answer->_0);
        m_modsError.reset();
    } else if (as<AnswerCase::Unimplemented>(reply) != nullptr ||
               (failure != nullptr && failure->message == GatewayWire::malformedRequest)) {
        m_modsError = "This Mac is still running an older Wendlow daemon, which cannot answer for "
                      "your mods yet. Quitting and reopening Wendlow picks up the new one.";
    } else {
        m_modsError = failure != nullptr ? failure->message
                                         : "Wendlow answered the mods board with something this "
                                           "mod does not understand.";
    }
    Q_EMIT changed();
}

void EditorLiveStore::showTiles(std::vector<std::int64_t> keys) {
    std::erase_if(keys, [this](std::int64_t key) { return m_tiles.holds(key); });
    m_wanted.assign(keys.begin(), keys.end());
    if (m_wanted.empty() || m_fetching)
        return;
    m_fetching = true;
    // Runs on by itself, and ends by itself where the store goes.
    [[maybe_unused]] const auto task = drainTiles();
}

QCoro::Task<> EditorLiveStore::drainTiles() {
    const Lifetime::Watch life = m_life.watch();
    while (!m_wanted.empty()) {
        const std::int64_t key = m_wanted.front();
        m_wanted.pop_front();
        if (m_tiles.holds(key))
            continue;
        EditorTile tile = co_await fetchTile(key);
        if (life.expired())
            co_return;
        m_tiles.remember(key, std::move(tile));
        Q_EMIT changed();
    }
    m_fetching = false;
}

QCoro::Task<EditorTile> EditorLiveStore::fetchTile(std::int64_t key) {
    const Lifetime::Watch life = m_life.watch();
    const ReadRequest smallPicture = ReadCase::GetThumbnail{.momentID = key};
    const EditorLink::Reply thumbnail = co_await send(smallPicture, Lane::later);
    if (auto tile = picture(thumbnail))
        co_return *std::move(tile);
    if (life.expired() || !m_frameDoorOpen)
        co_return EditorTile();
    const ReadRequest wholePicture = ReadCase::GetScreen{.momentID = key, .window = {}};
    const EditorLink::Reply screen = co_await send(wholePicture, Lane::later);
    // An older daemon has no such door: no further tile knocks there.
    if (!life.expired() && as<AnswerCase::Unimplemented>(screen) != nullptr)
        m_frameDoorOpen = false;
    co_return picture(screen).value_or(EditorTile());
}

} // namespace wendlow
