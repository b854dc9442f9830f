#pragma once

#include "Client.h"
#include "PaneModel.h"
#include "PaneState.h"
#include "Recording/AppChooser.h"
#include "Recording/RuleGroup.h"
#include "Rule.h"

#include <QCoroTask>
#include <QVariantList>
#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>
#include <string>
#include <vector>

namespace wendlow {

/// The pane of what gets remembered: the rules, which are the daemon's, in the groups of two tiers,
/// and what adds to them. After every change all rules are read again, so that the list is always
/// the daemon's. UI thread; may go while answers are under way.
class RecordingControlModel final : public PaneModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the model and hands it to the pane.")

    /// The groups of each tier, and the one of rules that this build does not know.
    Q_PROPERTY(QVariantList usageGroups READ usageGroups CONSTANT)
    Q_PROPERTY(QVariantList neverGroups READ neverGroups CONSTANT)
    Q_PROPERTY(wendlow::RuleGroup* others READ others CONSTANT)
    Q_PROPERTY(wendlow::AppChooser* chooser READ chooser CONSTANT)
    /// Why the rules could not be read; empty once they were.
    Q_PROPERTY(QString error READ error NOTIFY changed)
    /// The rules are being read, after they could not be.
    Q_PROPERTY(bool retrying READ retrying NOTIFY changed)
    /// They have been read.
    Q_PROPERTY(bool known READ isKnown NOTIFY changed)

public:
    RecordingControlModel(std::shared_ptr<WendlowClient> client, AppChooser::Surroundings apps);

    /// Reads the rules and then the icons of their sites; a newer load overtakes it.
    QCoro::Task<> load();
    QCoro::Task<> add(std::string value, RuleKind kind, RuleTier tier);
    QCoro::Task<> remove(std::string id);

    Q_INVOKABLE void refresh() override;
    void left() override { m_chooser.close(); }
    bool settled() const override { return m_asking == 0; }

    const std::vector<Rule>& rules() const { return m_rules; }
    const RuleGroup::Icons& siteIcons() const { return m_siteIcons; }

    /// All groups, those of the lighter tier first.
    const std::vector<RuleGroup*>& groups() const { return m_groups; }
    const QVariantList& usageGroups() const { return m_usage; }
    const QVariantList& neverGroups() const { return m_never; }
    RuleGroup* others() const { return m_others; }
    AppChooser* chooser() { return &m_chooser; }
    QString error() const { return QString::fromStdString(PaneStates::error(m_state)); }
    bool retrying() const { return !error().isEmpty() && m_asking > 0; }
    bool isKnown() const { return PaneStates::isRead(m_state); }

Q_SIGNALS:
    void changed();

private:
    RuleGroup* group(const RuleGroup::Nature& nature);
    QCoro::Task<> loadIcons(int mine);
    void show();

    const std::shared_ptr<WendlowClient> m_client;
    std::vector<Rule> m_rules;
    RuleGroup::Icons m_siteIcons;
    PaneState<std::monostate> m_state;
    int m_asking = 0; ///< loads and changes under way
    int m_loads = 0;  ///< an answer to an older one is dropped

    std::vector<RuleGroup*> m_groups; ///< all of them; children of the model
    QVariantList m_usage;
    QVariantList m_never;
    RuleGroup* m_others = nullptr;
    AppChooser m_chooser;
};

} // namespace wendlow
