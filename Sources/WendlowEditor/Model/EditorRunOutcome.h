#pragma once

#include <string>
#include <string_view>

namespace wendlow {

/// How a run of a mod ended.
struct EditorRunOutcome {
    enum class Kind {
        other, ///< a newer daemon's word, which is kept
        ok,
        failed,
        maxTurns,
        circuitBroken,
        timedOut,
        binaryNotFound,
        refusedNoBackup,
        refusedTools,
        authFailure,
        skippedNoHarness,
        skippedNoHarnessConsent,
    };
    enum class Tone { good, neutral, needsYou, fault };

    Kind kind = Kind::other;
    std::string text = {}; // NOLINT(readability-redundant-member-init): of `other` alone

    bool operator==(const EditorRunOutcome&) const = default;

    /// What the daemon's word means.
    static EditorRunOutcome of(std::string_view raw);

    /// What a person reads.
    std::string_view words() const;
    /// What nobody knows yet counts as a fault: it is never passed over.
    Tone tone() const;
    bool wentWell() const { return kind == Kind::ok; }
};

} // namespace wendlow
