#pragma once

#include "Floor/FaceModel.h"
#include "Rules/RuleComposerModel.h"
#include "Rules/RulesRows.h"
#include "Store/Lifetime.h"
#include "Store/PageSource.h"
#include "Store/RuleSource.h"
#include "Store/ScopeSource.h"

#include <map>

namespace wendlow {

/// The rules at a scope: what is delivered, what a session receives, what is filed, and where the
/// three differ; edited in place and added to. The picture that is shown stays while a newer one is
/// read. UI thread; may go while answers are under way. The sources must outlive it.
class RulesFaceModel final : public wendlow::FaceModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")
    Q_PROPERTY(wendlow::RulesRows* rows READ rows CONSTANT)
    Q_PROPERTY(wendlow::RuleComposerModel* composer READ composer CONSTANT)
    Q_PROPERTY(QString heading READ title CONSTANT)
    /// What the list is of, for a screen reader.
    Q_PROPERTY(QString listName READ listName NOTIFY changed)
    /// In place of rows; empty where there are some.
    Q_PROPERTY(QString emptyWords READ emptyWords NOTIFY changed)
    /// What is on screen is being read again.
    Q_PROPERTY(bool refreshing READ refreshing NOTIFY changed)
    /// What became of the last write; empty for nothing.
    Q_PROPERTY(QString outcome READ outcome NOTIFY changed)
    Q_PROPERTY(bool refused READ refused NOTIFY changed)

public:
    RulesFaceModel(RuleSource& rules, ScopeSource& scopes, PageSource& pages, FaceActions actions);
    ~RulesFaceModel() override { m_life.end(); }

    EditorFace face() const override { return EditorFace::rules; }
    QUrl page() const override;
    bool isModal() const override { return m_composer.isOpen(); }
    void show(const FaceView& view) override;
    void leave(EditorAsk& ask) override;
    bool back() override;
    /// Shows the scope of a rule that a search found, and brings the rule into sight.
    void reveal(const FoundHit& found, EditorAsk& ask) override;
    std::optional<std::int64_t> railCount() const override;
    bool isFilled() const override { return m_picture.has_value(); }
    FacePictures pictures() override;

    /// Begins to edit the rule of this row, or does what else the row is for.
    Q_INVOKABLE void activate(int index);
    /// What is being typed into the field of a row.
    Q_INVOKABLE QString draft(int index) const;
    Q_INVOKABLE void setDraft(int index, const QString& text);
    /// Writes it. Nothing happens where it has not changed, or is being written.
    Q_INVOKABLE void commit(int index);
    /// Leaves the field without writing.
    Q_INVOKABLE void leaveEdit(int index);
    Q_INVOKABLE void newRule();

    RulesRows* rows() { return &m_rows; }
    RuleComposerModel* composer() { return &m_composer; }
    QString listName() const;
    QString emptyWords() const;
    bool refreshing() const { return m_reading && m_picture; }
    QString outcome() const;
    bool refused() const { return m_outcome && !m_outcome->ok(); }

Q_SIGNALS:
    void changed();
    /// Something has to be read anew that could not be read.
    void retried();
    /// A row is to come into sight.
    void revealed(int index);

private:
    struct Key {
        std::string scope = "/";
        std::int64_t generation = 0;
        std::int64_t looks = 0;

        bool operator==(const Key&) const = default;
    };
    /// A row's field.
    struct Edit {
        std::uint64_t number = 0; ///< what was written for another one does not end it
        std::string ruleID;
        std::string from; ///< what the rule said when its field was opened
        QString draft;
        bool busy = false;
    };

    void settle(bool canAsk);
    QCoro::Task<> read(Key key);
    void take(std::string scope, EditorRulesPicture picture);
    void rebuild();
    QCoro::Task<> write(std::string rowID, Edit edit);
    void showWritten(const std::string& ruleID, const std::string& from, const std::string& to);
    void tell(EditorWriteOutcome outcome);
    void serveReveal();

    RuleSource& m_rules;
    ScopeSource& m_scopes;
    PageSource& m_pages;
    const FaceActions m_actions;
    RulesRows m_rows{nullptr};
    RuleComposerModel m_composer;
    bool m_counted = false;
    EditorAsk m_ask{.term = {}};
    Key m_key;
    std::optional<Key> m_asked;
    std::uint64_t m_task = 0; ///< an answer to another one is dropped
    bool m_reading = false;
    std::string m_scope; ///< of the picture that is shown
    std::optional<EditorRulesPicture> m_picture;
    std::map<std::string, Edit> m_edits; ///< by the row's id
    std::uint64_t m_editCount = 0;
    /// By the rule's id: what was typed and could not be written. Editing it again goes on there.
    std::map<std::string, QString> m_unwritten;
    std::optional<EditorWriteOutcome> m_outcome;
    std::string m_wanted; ///< the id of a rule that is to come into sight; empty for none
    Lifetime m_life;
};

} // namespace wendlow
