#pragma once

#include "Store/Lifetime.h"
#include "Store/RuleSource.h"

#include <QObject>
#include <QStringList>
#include <QtQmlIntegration/qqmlintegration.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// The sheet in which a rule is written. UI thread; may go while a write is under way. The source
/// must outlive it.
class RuleComposerModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the rules makes it.")
    Q_PROPERTY(bool open READ isOpen NOTIFY openChanged)
    Q_PROPERTY(QString title READ title NOTIFY openChanged)
    /// Where the rule may be delivered; the last one is a module of a new name.
    Q_PROPERTY(QStringList choices READ choices NOTIFY openChanged)
    /// The index of the choice; -1: none yet.
    Q_PROPERTY(int picked READ picked WRITE pick NOTIFY changed)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)
    Q_PROPERTY(QString why READ why WRITE setWhy NOTIFY changed)
    Q_PROPERTY(QString newName READ newName WRITE setNewName NOTIFY changed)
    /// What is wrong with that name; empty for nothing.
    Q_PROPERTY(QString nameFault READ nameFault NOTIFY changed)
    Q_PROPERTY(bool canSave READ canSave NOTIFY changed)
    Q_PROPERTY(bool busy READ isBusy NOTIFY changed)
    /// Why the rule was not added; empty for nothing.
    Q_PROPERTY(QString refusal READ refusal NOTIFY changed)

public:
    explicit RuleComposerModel(RuleSource& rules) : m_rules(rules) {}
    ~RuleComposerModel() override { m_life.end(); }

    static bool canSave(std::string_view text, std::string_view why,
                        const std::optional<EditorRulePlacement>& pick);

    /// Opens it, with nothing written yet. `known`: the rules modules that may be picked.
    void begin(std::string scope, std::vector<std::string> known);
    Q_INVOKABLE void save();
    /// Closes it. What is being written is written all the same, and told.
    Q_INVOKABLE void cancel();

    bool isOpen() const { return m_open; }
    QString title() const;
    QStringList choices() const;
    int picked() const { return m_picked; }
    void pick(int choice);
    QString text() const { return m_text; }
    void setText(const QString& text);
    QString why() const { return m_why; }
    void setWhy(const QString& why);
    QString newName() const { return m_newName; }
    /// Also picks the module of that name, where there is one.
    void setNewName(const QString& name);
    QString nameFault() const;
    bool canSave() const;
    bool isBusy() const { return m_busy; }
    QString refusal() const { return m_refusal; }

Q_SIGNALS:
    void openChanged();
    void changed();
    /// A write has ended, and the sheet does not show it any more.
    void ended(const wendlow::EditorWriteOutcome& outcome);

private:
    QCoro::Task<> write(std::string text, std::string why, EditorRulePlacement placement);
    std::optional<EditorRulePlacement> placement() const;
    void set(QString& field, const QString& value);
    void setOpen(bool open);

    RuleSource& m_rules;
    bool m_open = false;
    std::uint64_t m_session = 0; ///< a write of another one is not shown here
    std::string m_scope;
    std::vector<std::string> m_known;
    int m_picked = -1;
    QString m_text;
    QString m_why;
    QString m_newName;
    bool m_busy = false;
    QString m_refusal;
    Lifetime m_life;
};

} // namespace wendlow
