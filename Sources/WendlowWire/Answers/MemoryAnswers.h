#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Described.h"
#include "Records/Card.h"
#include "Records/Counts.h"
#include "Records/TextBrowseAnswer.h"

namespace wendlow {

/// Things of the memory, found or filed.
namespace AnswerCase {

struct Cards {
    std::vector<Card> _0;
    WENDLOW_CASE(Cards, "cards", _0);
};

struct KindCards {
    std::string scope;
    std::vector<Card> cards;
    WENDLOW_CASE(KindCards, "kindCards", scope, cards);
};

struct KindTypes {
    std::string scope;
    std::vector<KindCount> types;
    WENDLOW_CASE(KindTypes, "kindTypes", scope, types);
};

struct Thing {
    std::optional<Card> _0 = std::nullopt;
    WENDLOW_CASE(Thing, "thing", _0);
};

struct TextBrowse {
    TextBrowseAnswer _0;
    WENDLOW_CASE(TextBrowse, "textBrowse", _0);
};

struct TextIndexAudit {
    TextIndexAuditAnswer _0;
    WENDLOW_CASE(TextIndexAudit, "textIndexAudit", _0);
};

/// `echo` repeats what the daemon made of the input.
struct NoteID {
    std::string _0;
    std::optional<std::vector<std::string>> echo = std::nullopt;
    WENDLOW_CASE(NoteID, "noteID", _0, echo);
};

} // namespace AnswerCase
} // namespace wendlow
