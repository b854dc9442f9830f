#pragma once

#include "SilentGateway.h"
#include "StatsRoot.h"

#include <QQuickItem>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace wendlow {

/// The states of the Stats window, for pictures: full days, an odd one and one without data, and
/// those of a daemon that is slow or refuses. UI thread.
class StatsSnapshots final {
public:
    /// Called when the window stands in a state; is to save the picture.
    using Save = std::function<void(const QString& name)>;

    /// `content` is what the window shows, and `root` what that is over.
    StatsSnapshots(QQuickItem& content, StatsRoot& root, Save save);
    /// The window is over its own root again.
    ~StatsSnapshots();
    StatsSnapshots(const StatsSnapshots&) = delete;
    StatsSnapshots& operator=(const StatsSnapshots&) = delete;

    void take();
    /// Takes the state in which a window of another size looks different; `suffix` ends its name.
    void takeAtSize(const QString& suffix);

private:
    StatsRoot& pose(std::shared_ptr<Gateway> gateway);
    void save(const char* state) { m_save(QStringLiteral("stats") + QLatin1String(state)); }

    QQuickItem& m_content;
    StatsRoot& m_root;
    const Save m_save;
    const std::shared_ptr<SilentGateway> m_silent = std::make_shared<SilentGateway>();
    std::vector<std::unique_ptr<StatsRoot>> m_posed;
};

} // namespace wendlow
