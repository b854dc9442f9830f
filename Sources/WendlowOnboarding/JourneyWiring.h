#pragma once

#include "ConnectedAppsModel.h"
#include "ToolsBefore.h"

#include <QCoroTask>
#include <QObject>

#include <chrono>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace wendlow {

/// Which tools this journey has plugged in, over restarts: so that a cancel unplugs these and no
/// others. An id is recorded before its tool's files are touched and taken off when that came to
/// nothing, so that a journey that is killed in between still knows. What another process has put
/// on record meanwhile stays there, and counts as this journey's at a cancel. UI thread.
class JourneyWiring final : public QObject {
    Q_OBJECT

public:
    using Ids = std::vector<std::string>;
    using Load = std::function<Ids()>;
    using Save = std::function<void(const Ids&)>;

    JourneyWiring(ConnectedAppsModel& apps, Load load, Save save, ToolsBefore tools);

    /// Does nothing for a tool that is as wished, or being worked on.
    void set(const std::string& id, bool on);
    void setAll(bool on);
    /// Unplugs what was plugged in here and is connected now, one after the other, puts back what
    /// that leaves behind, and forgets all of it. Each is waited for, but for no longer than
    /// `limit`.
    QCoro::Task<> unplug(std::chrono::milliseconds limit);

    /// At least one is connected, whoever did that.
    bool anyConnected() const;
    /// The names of what `unplug` would begin with.
    Ids plugged() const;
    const Ids& ids() const { return m_ids; }
    ConnectedAppsModel& apps() const { return m_apps; }

    /// The apps have been looked at, or the limit has passed.
    QCoro::Task<> scanned(std::chrono::milliseconds limit);

    /// Of what was plugged in here, in its order, what is connected now.
    static Ids toUnwire(const Ids& pluggedIn, const Ids& connected);

Q_SIGNALS:
    void changed(); ///< something about the apps

private:
    const ConnectableApp* app(const std::string& id) const;
    Ids connected() const;
    void look();
    void save(const Ids& ids);
    QCoro::Task<> putBack(std::chrono::milliseconds limit);
    /// Until `over` holds when something changes, but for no longer than the limit.
    QCoro::Task<> until(std::function<bool()> over, std::chrono::milliseconds limit);

    ConnectedAppsModel& m_apps;
    const Load m_load;
    const Save m_save;
    const ToolsBefore m_tools;
    Ids m_ids;
    std::set<std::string> m_working; ///< a verb of ours is under way
};

} // namespace wendlow
