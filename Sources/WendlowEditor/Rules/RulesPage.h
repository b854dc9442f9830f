#pragma once

#include "Model/EditorRulesPicture.h"

#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

// GCC wants an initializer for each field that a designated list may leave out.
// NOLINTBEGIN(readability-redundant-member-init)

/// A line of the face of the rules.
struct RulesRow {
    enum class Kind {
        strip,   ///< what is wrong with what is shown
        section, ///< the title of one
        note,    ///< what has to be said about a section
        rule,
        level,  ///< a rule of a level of the stack
        module, ///< a rules module on the card
        group,  ///< the head of filed rules that are delivered alike
    };
    enum class Tone { information, warning };

    std::string id;
    Kind kind = Kind::note;
    std::string text = {};
    std::string lead = {};     ///< before the text: the path of a level, at its first rule
    std::string beside = {};   ///< behind the text, small
    std::string count = {};    ///< at the right, small
    std::string trailing = {}; ///< at the very right, small
    std::string under = {};    ///< a second line, small
    std::string ruleID = {};   ///< of its memory; empty where it cannot be edited
    Tone tone = Tone::information;
    bool apart = false;    ///< a gap stands above it
    bool first = false;    ///< of its card
    bool last = false;     ///< of its card
    bool ends = false;     ///< the last of its level
    bool canRetry = false; ///< it can be read again from here
    bool canAdd = false;   ///< a rule can be filed from here
    bool editing = false;
    bool busy = false;

    bool operator==(const RulesRow&) const = default;

    /// The arrows stop here.
    bool isStop() const {
        return kind == Kind::rule || kind == Kind::level || kind == Kind::module ||
               kind == Kind::group || canAdd || canRetry;
    }
};

// NOLINTEND(readability-redundant-member-init)

/// What the face of the rules says of a picture.
namespace RulesPage {

std::vector<RulesRow> rows(const EditorRulesPicture& picture, const std::string& scope,
                           std::string_view term);

/// Whether there are rules filed and a term that none of them holds.
bool nothingMatches(const std::vector<EditorRuleFileGroup>& groups, std::string_view term);

/// The rules modules into which a new rule of the scope may go.
std::vector<std::string> pickable(const std::optional<EditorRulesCard>& card,
                                  std::string_view scope);

} // namespace RulesPage

} // namespace wendlow
