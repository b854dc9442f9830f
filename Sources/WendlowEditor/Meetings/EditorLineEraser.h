#pragma once

#include "Store/MeetingSource.h"

#include <variant>

namespace wendlow {

namespace EditorLineEraseCase {
/// The line is gone.
struct Erased {
    /// As it reads now. Nothing: it could not be read again.
    std::optional<EditorTranscript> transcript;
    bool operator==(const Erased&) const = default;
};
/// The line was gone already; nothing need be said.
struct Unchanged {
    EditorTranscript transcript;
    bool operator==(const Unchanged&) const = default;
};
/// The line's row says something else now. Nothing was deleted.
struct Changed {
    EditorTranscript transcript;
    bool operator==(const Changed&) const = default;
};
/// The line could not be pinned to one row. Nothing was deleted.
struct Stuck {
    EditorTranscript transcript;
    bool operator==(const Stuck&) const = default;
};
struct Failed {
    std::string words;
    bool operator==(const Failed&) const = default;
};
} // namespace EditorLineEraseCase

using EditorLineEraseResult =
    std::variant<EditorLineEraseCase::Erased, EditorLineEraseCase::Unchanged,
                 EditorLineEraseCase::Changed, EditorLineEraseCase::Stuck,
                 EditorLineEraseCase::Failed>;

namespace EditorLineEraser {

/// Deletes a line as a person has seen it, and no other. The rows may have moved or been written
/// anew since they were read: a refusal is answered by a look at what the meeting says now, and the
/// line is tried once more only where exactly one row says the same, by the same speaker and at the
/// same time. UI thread; the source must outlive the call.
QCoro::Task<EditorLineEraseResult> erase(EditorTranscript::Line line, std::string meeting,
                                         MeetingSource& source);

} // namespace EditorLineEraser

} // namespace wendlow
