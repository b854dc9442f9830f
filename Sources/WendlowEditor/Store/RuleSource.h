#pragma once

#include "Model/EditorRulesPicture.h"

#include <string>

#include <QCoroTask>
#include <QObject>

namespace wendlow {

/// The rules. UI thread; a caller that awaits checks afterwards that it still lives.
class RuleSource : public QObject {
    Q_OBJECT

public:
    /// Never fails: what could not be read is told by the picture.
    virtual QCoro::Task<EditorRulesPicture> rulesPicture(std::string scope) = 0;
    /// Replaces the first `from` in a rule's text.
    virtual QCoro::Task<EditorWriteOutcome> editRuleLine(std::string id, std::string from,
                                                         std::string to) = 0;
    virtual QCoro::Task<EditorWriteOutcome> addRule(std::string text, std::string why,
                                                    EditorRulePlacement placement,
                                                    std::string scope) = 0;
};

} // namespace wendlow
