#pragma once

#include "Model/EditorRules.h"
#include "Model/EditorScope.h"

#include <string>
#include <string_view>
#include <vector>

#include <QCoroTask>
#include <QObject>

namespace wendlow {

/// The scopes and the folders that map to them. UI thread; a caller that awaits checks afterwards
/// that it still lives.
class ScopeSource : public QObject {
    Q_OBJECT

public:
    virtual const EditorScope& rootScope() const = 0;
    virtual const std::vector<EditorScopeRow>& scopeBoard() const = 0;
    /// False until a board has been read: the root alone then says nothing.
    virtual bool boardRead() const = 0;
    virtual QCoro::Task<EditorWriteOutcome> mapFolder(std::string folder, std::string path) = 0;

    /// The scopes above `path` that are on the tree, the root first. The tree must not change while
    /// they are in use.
    std::vector<const EditorScope*> ancestors(std::string_view path) const;

Q_SIGNALS:
    void changed();
};

} // namespace wendlow
