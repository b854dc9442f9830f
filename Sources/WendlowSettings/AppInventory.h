#pragma once

#include "Connector.h"
#include "InventoryList.h"

#include <QCoroTask>
#include <QObject>
#include <QString>
#include <QThreadPool>
#include <QTimer>
#include <QtQmlIntegration/qqmlintegration.h>

#include <atomic>
#include <memory>

namespace wendlow {

/// Whether what is open already is read once more.
enum class Reread { no, yes };

/// What an app's open row shows of the tool's own store: its projects and its memory files. UI
/// thread; the reading is done on the lane, behind every scan and verb that waits there.
class AppInventory final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The model of the pane makes one for each app.")

    Q_PROPERTY(wendlow::InventoryList* projects READ projects CONSTANT)
    Q_PROPERTY(wendlow::InventoryList* memoryFiles READ memoryFiles CONSTANT)
    Q_PROPERTY(bool loading READ loading NOTIFY changed)
    /// It has been loading for so long that a person should be told.
    Q_PROPERTY(bool slow READ slow NOTIFY changed)
    /// Something has been read; before, empty tables mean nothing.
    Q_PROPERTY(bool known READ known NOTIFY changed)
    /// The path of the store that was read, and as a person reads it; empty for none.
    Q_PROPERTY(QString source READ source NOTIFY changed)
    Q_PROPERTY(QString shownSource READ shownSource NOTIFY changed)
    /// What is said below each table; empty for nothing.
    Q_PROPERTY(QString projectsNote READ projectsNote NOTIFY changed)
    Q_PROPERTY(QString memoryNote READ memoryNote NOTIFY changed)

public:
    /// `lane` must outlive the object.
    AppInventory(std::shared_ptr<Connector> connector, QThreadPool& lane, InventoryWords words,
                 QObject* parent);
    ~AppInventory() override;

    /// The row opens, which reads, or closes, which drops the reading. `reread` reads again what is
    /// open and stays so. The last known state is shown until a new one lands.
    void setOpen(bool open, Reread reread);
    /// Skips what has not begun and drops what has.
    void drop();

    InventoryList* projects() { return &m_projects; }
    InventoryList* memoryFiles() { return &m_memoryFiles; }
    bool loading() const { return m_loading; }
    bool slow() const { return m_slow; }
    bool known() const { return m_known; }
    QString source() const { return m_source; }
    QString shownSource() const { return m_shownSource; }
    QString projectsNote() const { return m_projectsNote; }
    QString memoryNote() const { return m_memoryNote; }

Q_SIGNALS:
    void changed();

private:
    QCoro::Task<> read();
    void setLoading(bool loading);
    void land(Inventory inventory);

    const std::shared_ptr<Connector> m_connector;
    QThreadPool& m_lane;
    const std::string m_home;
    InventoryList m_projects;
    InventoryList m_memoryFiles;
    QString m_source;
    QString m_shownSource;
    QString m_projectsNote;
    QString m_memoryNote;
    bool m_open = false;
    bool m_loading = false;
    bool m_slow = false;
    bool m_known = false;
    QTimer m_patience;

    /// Counts readings. Shared with the lane, where one that is no longer wanted skips its work.
    const std::shared_ptr<std::atomic<int>> m_generation = std::make_shared<std::atomic<int>>(0);
};

} // namespace wendlow
