#include "Live/LiveMods.h"

#include "Live/AnswerWords.h"
#include "Say.h"

#include <utility>

namespace wendlow {

namespace {

EditorModsBoard boardOf(const ModBoardAnswer& wire) {
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
                             run.turns, EditorRunOutcome::of(run.outcome), run.outputPath,
                             run.report, run.mutations});
    return made;
}

} // namespace

LiveMods::LiveMods(EditorLink& link, LiveTell tell) : m_link(link), m_tell(std::move(tell)) {}

void LiveMods::loadMods() {
    if (m_loaded || m_reading)
        return;
    // Runs on by itself, and ends by itself where this goes.
    [[maybe_unused]] const auto task = read();
}

void LiveMods::readAgain() {
    if (m_loaded && !m_reading)
        // Runs on by itself, and ends by itself where this goes.
        [[maybe_unused]]
        const auto task = read();
}

QCoro::Task<> LiveMods::read() {
    const Lifetime::Watch life = m_life.watch();
    m_reading = true;
    const ReadRequest request = ReadCase::ModBoard();
    EditorLink::Reply reply = co_await m_link.send(request, EditorLink::Lane::now);
    if (life.expired())
        co_return;
    m_reading = false;
    const auto board = expect<AnswerCase::ModBoard>(std::move(reply.response));
    m_loaded = board.has_value();
    if (board) {
        m_board = boardOf(board->_0);
        m_error.reset();
    } else if (board.error().isFromOlderDaemon()) {
        m_error =
            say("This Mac is still running an older Wendlow daemon, which cannot answer for your "
                "mods yet. Quitting and reopening Wendlow picks up the new one.");
    } else {
        m_error = AnswerWords::of(board.error(), AnswerWords::Question::modsBoard);
    }
    m_tell(EditorChange::mods);
}

} // namespace wendlow

#include "moc_LiveMods.cpp"
