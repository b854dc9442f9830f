#include "StatsSnapshots.h"

#include "PosedDays.h"
#include "UnimplementedGateway.h"

#include <QCoreApplication>

#include <utility>

namespace wendlow {

StatsSnapshots::StatsSnapshots(QQuickItem& content, StatsRoot& root, Save save)
    : m_content(content), m_root(root), m_save(std::move(save)) {
    m_content.setProperty("posing", true);
}

StatsSnapshots::~StatsSnapshots() {
    m_content.setProperty("root", QVariant::fromValue(&m_root));
    m_content.setProperty("posing", false);
    // What showed the posed ones goes before they do.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_posed.clear();
    m_silent->giveUp(); // who still waits would hold it for ever
}

StatsRoot& StatsSnapshots::pose(std::shared_ptr<Gateway> gateway) {
    auto client = std::make_shared<InProcessClient>(std::move(gateway));
    StatsRoot& root =
        *m_posed.emplace_back(std::make_unique<StatsRoot>(std::move(client), &PosedDays::now));
    m_content.setProperty("root", QVariant::fromValue(&root));
    return root;
}

void StatsSnapshots::take() {
    pose(m_silent);
    SilentGateway::waitUntilNoticed();
    save("-reading");
    pose(std::make_shared<UnimplementedGateway>());
    save("-unanswered");
    StatsRoot& root = pose(std::make_shared<PosedDays>());
    save("");
    const auto goBack = [&root](int days) {
        for (int day = 0; day < days; ++day)
            root.goToPreviousDay();
    };
    goBack(PosedDays::oddDaysAgo);
    save("-odd");
    goBack(PosedDays::emptyDaysAgo - PosedDays::oddDaysAgo);
    save("-empty");
    goBack(PosedDays::fullDaysAgo - PosedDays::emptyDaysAgo);
    save("-day");
}

void StatsSnapshots::takeAtSize(const QString& suffix) {
    pose(std::make_shared<PosedDays>());
    m_save(QStringLiteral("stats") + suffix);
}

} // namespace wendlow
