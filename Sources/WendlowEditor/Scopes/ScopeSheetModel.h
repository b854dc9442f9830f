#pragma once

#include "Scopes/ScopeMoves.h"
#include "Store/Lifetime.h"
#include "Store/ScopeSource.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace wendlow {

/// Which sheet of the scopes is open.
namespace ScopeSheet {
struct MapFolder {
    std::string scope;
    bool operator==(const MapFolder&) const = default;
};
struct Rename {
    std::string scope;
    bool operator==(const Rename&) const = default;
};
struct Retire {
    std::string scope;
    bool operator==(const Retire&) const = default;
};
struct NewScope {
    bool operator==(const NewScope&) const = default;
};
using Any = std::variant<MapFolder, Rename, Retire, NewScope>;

/// By which one is told from another.
std::string id(const Any& sheet);
} // namespace ScopeSheet

/// The sheets of the scopes: a folder is mapped, or a move is looked at before its script is
/// written. UI thread; may go while a mapping is under way. The source must outlive it.
class ScopeSheetModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the scopes makes it.")
    Q_PROPERTY(bool open READ isOpen NOTIFY openChanged)
    Q_PROPERTY(QString title READ title NOTIFY openChanged)
    /// What the sheet is for; empty where its preview says it.
    Q_PROPERTY(QString text READ text NOTIFY openChanged)
    /// The label of the field for a scope's path; empty for no such field.
    Q_PROPERTY(QString pathLabel READ pathLabel NOTIFY openChanged)
    Q_PROPERTY(bool mapsFolder READ mapsFolder NOTIFY openChanged)
    Q_PROPERTY(QString commitLabel READ commitLabel NOTIFY openChanged)
    Q_PROPERTY(QString path READ path WRITE setPath NOTIFY changed)
    Q_PROPERTY(QString folder READ folder WRITE setFolder NOTIFY changed)
    /// Why nothing can be committed, and that it is what has been written there; empty for nothing.
    Q_PROPERTY(QString fault READ fault NOTIFY changed)
    Q_PROPERTY(bool pathFails READ pathFails NOTIFY changed)
    Q_PROPERTY(bool folderFails READ folderFails NOTIFY changed)
    /// What the move would do; empty while there is none.
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(wendlow::ScopeMoves* moves READ moves CONSTANT)
    Q_PROPERTY(bool canCommit READ canCommit NOTIFY changed)
    Q_PROPERTY(bool busy READ isBusy NOTIFY changed)
    /// Why the folder was not mapped; empty for nothing.
    Q_PROPERTY(QString refusal READ refusal NOTIFY changed)

public:
    explicit ScopeSheetModel(ScopeSource& scopes) : m_scopes(scopes) {}
    ~ScopeSheetModel() override { m_life.end(); }

    void begin(ScopeSheet::Any sheet);
    /// The board reads differently now.
    void followBoard();
    /// A script is being written: another one has to wait.
    void setWriting(bool writing);
    Q_INVOKABLE void commit();
    /// Closes it. What is being mapped is mapped all the same, and told.
    Q_INVOKABLE void cancel();

    bool isOpen() const { return m_open; }
    const ScopeSheet::Any& sheet() const { return m_sheet; }
    QString title() const;
    QString text() const;
    QString pathLabel() const;
    bool mapsFolder() const;
    QString commitLabel() const;
    QString path() const { return m_path; }
    void setPath(const QString& path);
    QString folder() const { return m_folder; }
    void setFolder(const QString& folder);
    QString fault() const;
    bool pathFails() const { return !m_path.isEmpty() && !m_pathFault.empty(); }
    bool folderFails() const { return !m_folder.isEmpty() && !m_folderFault.empty(); }
    QString summary() const { return m_summary; }
    ScopeMoves* moves() { return &m_moves; }
    bool canCommit() const;
    bool isBusy() const { return m_busy || m_writing; }
    QString refusal() const { return m_refusal; }

Q_SIGNALS:
    void openChanged();
    void changed();
    /// A mapping has ended, and the sheet does not show it any more.
    void mapped(const std::string& path, const wendlow::EditorWriteOutcome& outcome);
    /// The script of this move is to be written.
    void scriptWanted(const wendlow::EditorScopeMigration& migration);

private:
    QCoro::Task<> map(std::string folder, std::string path);
    /// The scope that the sheet is about; empty for a new one.
    const std::string& scope() const;
    std::optional<EditorScopeMigration> migration() const;
    void judge();
    void setOpen(bool open);

    ScopeSource& m_scopes;
    ScopeSheet::Any m_sheet = ScopeSheet::NewScope{};
    bool m_open = false;
    std::uint64_t m_session = 0; ///< a mapping of another one is not shown here
    QString m_path;
    QString m_folder;
    std::string m_pathFault;
    std::string m_folderFault;
    QString m_summary;
    ScopeMoves m_moves{nullptr};
    bool m_busy = false;
    bool m_writing = false;
    QString m_refusal;
    Lifetime m_life;
};

} // namespace wendlow
