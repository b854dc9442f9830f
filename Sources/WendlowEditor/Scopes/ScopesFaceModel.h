#pragma once

#include "Floor/FaceModel.h"
#include "Scopes/EditorMigrationWriter.h"
#include "Scopes/ScopeSheetModel.h"
#include "Scopes/ScopesRows.h"
#include "Store/Lifetime.h"
#include "Store/ScopeSource.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace wendlow {

/// Every scope with what is filed there and which folders point at it. A folder is mapped here; a
/// scope is moved by a script that is written here, and run by the person. UI thread; may go while
/// something is being mapped or written. The source must outlive it.
class ScopesFaceModel final : public wendlow::FaceModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")
    Q_PROPERTY(wendlow::ScopesRows* rows READ rows CONSTANT)
    Q_PROPERTY(wendlow::ScopeSheetModel* sheet READ sheet CONSTANT)
    Q_PROPERTY(QString heading READ title CONSTANT)
    Q_PROPERTY(QString intro READ intro CONSTANT)
    /// The row whose actions are shown; -1: none.
    Q_PROPERTY(int selected READ selected WRITE select NOTIFY selectedChanged)
    /// In place of rows; empty where there are some.
    Q_PROPERTY(QString emptyWords READ emptyWords NOTIFY changed)
    Q_PROPERTY(bool reading READ isReading NOTIFY changed)
    /// What is wrong with what is shown, or why nothing is; empty for nothing.
    Q_PROPERTY(QString strip READ strip NOTIFY changed)
    Q_PROPERTY(bool stripWarns READ stripWarns NOTIFY changed)
    /// What became of the last mapping; empty for nothing.
    Q_PROPERTY(QString outcome READ outcome NOTIFY changed)
    Q_PROPERTY(bool refused READ refused NOTIFY changed)
    /// What became of the last script; empty for nothing.
    Q_PROPERTY(QString script READ script NOTIFY changed)
    /// Where it is; empty where none was written.
    Q_PROPERTY(QString scriptPath READ scriptPath NOTIFY changed)
    /// Why the folder it is in could not be opened; empty for nothing.
    Q_PROPERTY(QString folderFault READ folderFault NOTIFY changed)

public:
    using MakePlace = std::function<EditorMigrationWriter::Place()>;

    /// `place` is asked on another thread.
    ScopesFaceModel(ScopeSource& scopes, FaceActions actions,
                    MakePlace place = EditorMigrationWriter::Place::here);
    ~ScopesFaceModel() override { m_life.end(); }

    EditorFace face() const override { return EditorFace::scopes; }
    QUrl page() const override;
    bool showsScopeChip() const override { return false; }
    bool isModal() const override { return m_sheet.isOpen(); }
    void show(const FaceView& view) override;
    void appear(EditorAsk& ask) override;
    void leave(EditorAsk& ask) override;
    bool back() override;
    /// Selects a scope that a search found, and brings it into sight.
    void reveal(const FoundHit& found, EditorAsk& ask) override;
    std::optional<std::int64_t> railCount() const override { return m_count; }
    bool isFilled() const override { return m_read; }
    FacePictures pictures() override;

    Q_INVOKABLE void mapFolder();
    Q_INVOKABLE void rename();
    Q_INVOKABLE void retire();
    Q_INVOKABLE void newScope();
    Q_INVOKABLE void openFolder();

    ScopesRows* rows() { return &m_rows; }
    ScopeSheetModel* sheet() { return &m_sheet; }
    static QString intro();
    int selected() const { return m_selected ? m_rows.indexOf(*m_selected) : -1; }
    void select(int index);
    QString emptyWords() const;
    bool isReading() const;
    QString strip() const;
    bool stripWarns() const;
    QString outcome() const;
    bool refused() const { return m_outcome && !m_outcome->ok(); }
    QString script() const;
    QString scriptPath() const;
    QString folderFault() const { return m_folderFault; }

Q_SIGNALS:
    void changed();
    void selectedChanged();
    /// A row is to come into sight.
    void revealed(int index);

private:
    void boardChanged();
    void follow();
    void take(std::vector<EditorScopeRow> board, bool read);
    void selectPath(const std::string& path);
    void writeScript(const EditorScopeMigration& migration);
    QCoro::Task<> write(EditorScopeMigration migration);
    template<class Sheet> void begin();

    ScopeSource& m_scopes;
    const FaceActions m_actions;
    const MakePlace m_place;
    ScopesRows m_rows{nullptr};
    ScopeSheetModel m_sheet;
    bool m_isBehind = true; ///< the board has changed since the rows were made
    bool m_read = false;
    std::optional<std::int64_t> m_count; ///< of scopes, those above others included
    EditorAnswerState m_state = EditorAnswerStateCase::Pending{};
    std::optional<std::string> m_selected;
    std::optional<EditorWriteOutcome> m_outcome; ///< of the last mapping
    std::optional<EditorWriteOutcome> m_script;
    QString m_folderFault;
    Lifetime m_life;
};

} // namespace wendlow
