#pragma once

#include "Floor/FaceModel.h"
#include "Mods/ModsRows.h"
#include "Store/ModSource.h"

namespace wendlow {

/// The mods that are installed, those that were refused, what has run, and the report of a run.
/// UI thread; the source must outlive it.
class ModsFaceModel final : public wendlow::FaceModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")
    Q_PROPERTY(wendlow::ModsRows* rows READ rows CONSTANT)
    /// In place of rows; empty where there are some, or where `trouble` says why not.
    Q_PROPERTY(QString emptyWords READ emptyWords NOTIFY changed)
    Q_PROPERTY(bool reading READ isReading NOTIFY changed)
    /// Why the mods could not be read; empty for nothing.
    Q_PROPERTY(QString trouble READ trouble NOTIFY changed)

    // Of the run whose report is open.
    Q_PROPERTY(QString reportTitle READ reportTitle NOTIFY reportChanged)
    Q_PROPERTY(QString reportOutcome READ reportOutcome NOTIFY reportChanged)
    Q_PROPERTY(int reportTone READ reportTone NOTIFY reportChanged)
    /// How long it took, its turns and its changes, as far as they are known.
    Q_PROPERTY(QString reportFacts READ reportFacts NOTIFY reportChanged)
    /// The report is shown in part.
    Q_PROPERTY(bool reportCut READ isReportCut NOTIFY reportChanged)
    Q_PROPERTY(QString report READ report NOTIFY reportChanged)

public:
    explicit ModsFaceModel(ModSource& mods);

    EditorFace face() const override { return EditorFace::mods; }
    QUrl page() const override;
    bool isModal() const override { return m_isReportOpen; }
    void show(const FaceView& view) override;
    void appear(EditorAsk& ask) override;
    void leave(EditorAsk& ask) override;
    bool back() override;
    /// Brings the mod that a search found into sight.
    void reveal(const FoundHit& found, EditorAsk& ask) override;
    std::optional<std::int64_t> railCount() const override;
    bool isFilled() const override { return !isReading(); }
    FacePictures pictures() override;

    /// Opens the report of the run of this row, if there is one.
    Q_INVOKABLE void activate(int row);
    Q_INVOKABLE void closeReport();

    ModsRows* rows() { return &m_rows; }
    QString emptyWords() const;
    bool isReading() const { return !m_shown.board && !m_shown.loaded && trouble().isEmpty(); }
    QString trouble() const;
    QString reportTitle() const;
    QString reportOutcome() const;
    int reportTone() const { return static_cast<int>(m_report.outcome.tone()); }
    QString reportFacts() const;
    bool isReportCut() const { return m_report.isReportTruncated(); }
    QString report() const;

Q_SIGNALS:
    void changed();
    void reportChanged();
    /// A row is to come into sight.
    void revealed(int row);

private:
    /// What the source holds, as it is shown.
    struct Shown {
        std::optional<EditorModsBoard> board;
        bool loaded = false;
        std::optional<std::string> error;
    };

    void take();
    void showBoard(Shown shown);
    void serveReveal();

    ModSource& m_mods;
    Shown m_shown;
    ModsRows m_rows{nullptr};
    std::optional<std::string> m_storeError; ///< why nothing at all can be read
    std::int64_t m_generation = 0;
    std::optional<SearchDestination::Mod> m_wanted; ///< is to come into sight
    bool m_isReportOpen = false;
    EditorModRun m_report; ///< stays while its sheet closes
};

} // namespace wendlow
