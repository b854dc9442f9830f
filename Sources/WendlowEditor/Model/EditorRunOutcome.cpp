#include "Model/EditorRunOutcome.h"

#include "Say.h"

#include <algorithm>
#include <array>

namespace wendlow {

namespace {

using Kind = EditorRunOutcome::Kind;
using Tone = EditorRunOutcome::Tone;

struct Known {
    Kind kind;
    std::string_view raw;
    const char* words;
    Tone tone;
};

constexpr std::array known{
    Known{Kind::ok, "ok", sayLater("ok"), Tone::good},
    Known{Kind::failed, "failed", sayLater("failed"), Tone::fault},
    Known{Kind::maxTurns, "maxTurns", sayLater("hit the turn cap"), Tone::fault},
    Known{Kind::circuitBroken, "circuitBroken", sayLater("stopped — too many changes"),
          Tone::fault},
    Known{Kind::timedOut, "timedOut", sayLater("timed out"), Tone::fault},
    Known{Kind::binaryNotFound, "binaryNotFound", sayLater("no runner binary"), Tone::fault},
    Known{Kind::refusedNoBackup, "refusedNoBackup", sayLater("refused — no verified backup"),
          Tone::needsYou},
    Known{Kind::refusedTools, "refusedTools", sayLater("refused — tool not granted"), Tone::fault},
    Known{Kind::authFailure, "authFailure", sayLater("sign-in needed"), Tone::needsYou},
    Known{Kind::skippedNoHarness, "skippedNoHarness", sayLater("skipped — no runner"),
          Tone::neutral},
    Known{Kind::skippedNoHarnessConsent, "skippedNoHarnessConsent",
          sayLater("skipped — runner not consented"), Tone::neutral},
};

} // namespace

EditorRunOutcome EditorRunOutcome::of(std::string_view raw) {
    const auto* const found = std::ranges::find(known, raw, &Known::raw);
    if (found == known.end())
        return {.kind = Kind::other, .text = std::string(raw)};
    return {.kind = found->kind};
}

std::string_view EditorRunOutcome::words() const {
    const auto* const found = std::ranges::find(known, kind, &Known::kind);
    return found == known.end() ? std::string_view(text) : say.view(found->words);
}

EditorRunOutcome::Tone EditorRunOutcome::tone() const {
    const auto* const found = std::ranges::find(known, kind, &Known::kind);
    return found == known.end() ? Tone::fault : found->tone;
}

} // namespace wendlow
