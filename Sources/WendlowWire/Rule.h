#pragma once

#include <string>

#include <boost/describe/enum.hpp>

#include "Described.h"
#include "OpenCase.h"

namespace wendlow {

/// What a rule looks at.
enum class RuleKind { app, site, word, phrase, topic };
BOOST_DESCRIBE_ENUM(RuleKind, app, site, word, phrase, topic)

/// What becomes of that at which it looks: only its hours are kept, or nothing is.
enum class RuleTier { usageOnly, never };
BOOST_DESCRIBE_ENUM(RuleTier, usageOnly, never)

/// Whether the rule came with the product.
enum class RuleOrigin { shipped, user };
BOOST_DESCRIBE_ENUM(RuleOrigin, shipped, user)

/// A rule of what may be recorded. Its identifier never changes. Of a kind or tier of a newer
/// daemon it is a rule still, which a person has to see and can remove.
struct Rule {
    std::string id;
    OpenCase<RuleKind> kind = RuleKind::app;
    std::string value;
    OpenCase<RuleTier> tier = RuleTier::never;
    RuleOrigin origin = RuleOrigin::user;
    bool enabled = false;
    WENDLOW_RECORD(Rule, id, kind, value, tier, origin, enabled);
};

} // namespace wendlow
