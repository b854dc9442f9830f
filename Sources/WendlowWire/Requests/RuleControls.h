#pragma once

#include <string>

#include "Described.h"

namespace wendlow {

/// What may be recorded.
namespace ControlCase {

/// `kind` and `tier` are the raw strings of `RuleKind` and `RuleTier`.
struct AddRule {
    std::string value;
    std::string kind;
    std::string tier;
    WENDLOW_REQUEST(AddRule, "addRule", "add_rule", value, kind, tier);
};

struct RemoveRule {
    std::string id;
    WENDLOW_REQUEST(RemoveRule, "removeRule", "remove_rule", id);
};

struct ToggleRule {
    std::string id;
    bool enabled = false;
    WENDLOW_REQUEST(ToggleRule, "toggleRule", "toggle_rule", id, enabled);
};

struct AddConcept {
    std::string _0;
    WENDLOW_REQUEST(AddConcept, "addConcept", "add_concept", _0);
};

struct RemoveConcept {
    std::string _0;
    WENDLOW_REQUEST(RemoveConcept, "removeConcept", "remove_concept", _0);
};

} // namespace ControlCase
} // namespace wendlow
