#pragma once

#include "Moments/MomentCellModel.h"
#include "Moments/MomentHeads.h"
#include "Moments/MomentLayout.h"
#include "Moments/MomentViewport.h"

#include <QAbstractListModel>
#include <QTimer>
#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace wendlow {

/// The moments as the page shows them: a few cells that are there for good, each showing the moment
/// that has come to where it is. So a library of years costs what a screenful costs, and where each
/// moment stands is known to the pixel. A row of the model is a cell. UI thread.
class MomentGrid final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the moments makes it.")
    /// How many moments there are.
    Q_PROPERTY(int count READ count NOTIFY laidOut)
    Q_PROPERTY(double contentHeight READ contentHeight NOTIFY laidOut)
    Q_PROPERTY(wendlow::MomentHeads* heads READ heads CONSTANT)
    /// The head of the day whose moments pass at the top; empty where its own head is there.
    Q_PROPERTY(QString stickyTitle READ stickyTitle NOTIFY stickyChanged)
    /// How far the next head has pushed it up.
    Q_PROPERTY(double stickyOffset READ stickyOffset NOTIFY stickyChanged)
    /// The moment that the keys are at, by its place on the page, -1 for none; and the cell that
    /// shows it, which stays with it wherever the page is scrolled.
    Q_PROPERTY(int current READ current NOTIFY currentChanged)
    Q_PROPERTY(int currentCell READ currentCell NOTIFY currentChanged)
    /// The times of a day that take most room in a cell.
    Q_PROPERTY(QStringList wideTimes READ wideTimes CONSTANT)

public:
    enum Role { ContentRole = Qt::UserRole + 1 };
    enum Step { Left, Right, Up, Down, PageUp, PageDown, First, Last };
    Q_ENUM(Step)

    struct Hooks {
        std::function<QDate()> today;
        /// The pictures of these are in sight. While the page rushes by none are.
        std::function<void(std::vector<std::int64_t> keys)> showTiles;
        /// The last moment has come into sight. Called while the page is laid out.
        std::function<void()> reachedEnd;
    };

    MomentGrid(const HeldMoments& held, Hooks hooks);

    /// More are held; what is seen stays where it is.
    void grow(std::size_t from);
    /// Others are held, from the first one on.
    void startAfresh();
    /// It is another day than it was.
    void turnDay();
    /// Nothing is on screen any more.
    void hide();

    Q_INVOKABLE void measure(int columns, int cellHeight, int rowGap, int top, int headGap,
                             int headHeight);
    /// What of the page is in sight.
    Q_INVOKABLE void look(double top, double height);
    /// Where the current moment, or any other, begins; and the moment that a step leads to.
    Q_INVOKABLE double topOf(int place) const;
    Q_INVOKABLE int columnOf(int place) const;
    Q_INVOKABLE int stepFrom(int place, Step step) const;
    Q_INVOKABLE void setCurrent(int place);

    int count() const { return static_cast<int>(m_layout.count()); }
    double contentHeight() const { return m_layout.height(); }
    MomentHeads* heads() { return &m_heads; }
    QString stickyTitle() const { return m_stickyTitle; }
    double stickyOffset() const { return m_stickyOffset; }
    int current() const;
    static QStringList wideTimes();
    int currentCell() const;
    const MomentLayout& layout() const { return m_layout; }
    /// Of a moment among those held.
    QDate dayOf(std::size_t at) const { return QDate::fromJulianDay(m_layout.day(at)); }
    const EditorMoment& moment(int place) const;
    const MomentCellModel& cell(int row) const { return *m_cells[static_cast<std::size_t>(row)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void laidOut();
    void stickyChanged();
    void currentChanged();
    /// What is seen has moved on the page by so much, for something came above it.
    void shifted(double by);

private:
    void lookAgain() { look(m_top, m_height); }
    void placeCells(std::size_t first, std::size_t last, MomentCellModel::Words words);
    void assign(std::size_t at, std::optional<std::size_t> held, MomentCellModel::Words words);
    void put(std::size_t at, std::size_t held, MomentCellModel::Words words);
    void tellCells();
    void stand(MomentCellModel& cell) const;
    void followViewport(double top, double bottom, bool isPassing);
    void showTiles();
    void followHeads();
    QString headWords(std::size_t day, const QDate& today);

    const HeldMoments& m_held;
    const Hooks m_hooks;
    MomentLayout m_layout;
    MomentViewport m_viewport;
    MomentHeads m_heads;
    std::vector<std::unique_ptr<MomentCellModel>> m_cells;
    std::unordered_map<std::size_t, std::size_t> m_cellOf; ///< by place among those held
    std::optional<std::size_t> m_current;                  ///< the same
    double m_top = 0;
    double m_height = 0;
    QString m_stickyTitle;
    double m_stickyOffset = 0;
    std::unordered_map<std::int64_t, QString> m_headWords; ///< by day, seen from this one
    QDate m_headsToday;
    QTimer m_rush;            ///< runs for a while after a screenful has gone by at once
    bool m_owesTiles = false; ///< what is in sight is still to be told
};

} // namespace wendlow
