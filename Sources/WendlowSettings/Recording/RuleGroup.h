#pragma once

#include "KeyedListModel.h"
#include "Rule.h"

#include <QByteArray>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <map>
#include <optional>
#include <span>
#include <string>

namespace wendlow {

/// One rule as its group shows it.
struct RuleRow {
    std::string id;
    QString value;
    QString tag;        ///< shown with the pointer or the focus; empty for none
    bool off = false;   ///< the rule is there and does not hold
    QByteArray picture; ///< of a site, as it came; empty for none

    bool operator==(const RuleRow&) const = default;
};

/// The rules of one kind in one tier, and the field in which another one is typed. UI thread.
class RuleGroup final : public KeyedListModel<RuleRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The model of the pane has its groups.")

    Q_PROPERTY(QString title READ title CONSTANT)
    /// What stands below the title; empty for nothing.
    Q_PROPERTY(QString caption READ caption CONSTANT)
    /// What opens the field or the list of apps; empty: nothing is added here.
    Q_PROPERTY(QString addWords READ addWords CONSTANT)
    /// What is shown in the empty field.
    Q_PROPERTY(QString hint READ hint CONSTANT)
    /// A symbol, or empty where a row has a letter or a picture.
    Q_PROPERTY(QString symbol READ symbol CONSTANT)
    /// Apps are picked, everything else is typed.
    Q_PROPERTY(bool picked READ isPicked CONSTANT)
    /// It is shown though nothing is in it.
    Q_PROPERTY(bool stands READ stands CONSTANT)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

    /// The field is open.
    Q_PROPERTY(bool adding READ isAdding NOTIFY entryChanged)
    Q_PROPERTY(QString typed READ typed WRITE setTyped NOTIFY entryChanged)
    /// It is on its way to the daemon.
    Q_PROPERTY(bool busy READ isBusy NOTIFY entryChanged)
    /// Why it was not sent; empty: it was.
    Q_PROPERTY(QString note READ note NOTIFY entryChanged)

public:
    enum Role {
        IdRole = Qt::UserRole,
        ValueRole,
        TagRole,
        OffRole,
        PictureRole, ///< a `QImage`, null where there is none
        LetterRole
    };

    /// What a group is, its words still to be said. With no kinds it takes what no other group
    /// does.
    struct Nature {
        std::span<const RuleKind> kinds;
        std::optional<RuleTier> tier;
        const char* title = "";
        const char* caption = "";
        const char* addWords = "";
        const char* hint = "";
        const char* symbol = "";
        bool stands = true;
    };
    using Icons = std::map<std::string, QByteArray>; ///< by host

    RuleGroup(const Nature& nature, QObject* parent);

    /// Whether a rule is one of this group.
    bool takes(const Rule& rule) const;
    /// Shows those of the rules that it takes.
    void show(std::span<const Rule> rules, const Icons& icons);
    /// Whether it has a rule for this, in whatever case of letters.
    bool has(const std::string& value) const;

    Q_INVOKABLE void open();
    Q_INVOKABLE void cancel();
    /// Has what is typed made a rule, which ends with `sent`. Nothing happens with nothing typed,
    /// or while that is under way; what is there already is told.
    Q_INVOKABLE void commit();
    /// The same for what was picked elsewhere; gives whether it was sent.
    bool offer(const std::string& value);
    /// The daemon has answered what was sent: the next rules that are read tell what came of it.
    void answered(const Rule& rule);
    /// The rules have been read, or could not be.
    void settle();
    Q_INVOKABLE void remove(int index);

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    const Nature& nature() const { return m_nature; }
    QString title() const;
    QString caption() const;
    QString addWords() const;
    QString hint() const;
    QString symbol() const { return QString::fromUtf8(m_nature.symbol); }
    bool isPicked() const;
    bool stands() const { return m_nature.stands; }
    int count() const { return rowCount(); }
    bool isAdding() const { return m_adding; }
    QString typed() const { return m_typed; }
    void setTyped(const QString& typed);
    bool isBusy() const { return !m_sent.empty(); }
    QString note() const { return m_note; }

Q_SIGNALS:
    void countChanged();
    void entryChanged();
    /// A rule for this value is wanted.
    void wanted(const std::string& value, wendlow::RuleKind kind);
    /// The rule of this id is to go.
    void unwanted(const std::string& id);
    /// What was sent has become a rule.
    void added();

private:
    bool isOf(RuleKind kind) const;
    RuleRow made(const Rule& rule, const Icons& icons) const;
    std::string fit(const std::string& value) const;
    RuleKind kindOf(const std::string& value) const;

    const Nature m_nature;
    bool m_adding = false;
    QString m_typed;
    std::string m_sent; ///< under way; empty for nothing
    bool m_answered = false;
    QString m_note;
};

} // namespace wendlow
