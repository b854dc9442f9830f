#pragma once

#include "JourneyRoot.h"
#include "PosedJourney.h"

#include <QQuickItem>
#include <QString>

#include <functional>
#include <memory>

namespace wendlow {

/// The screens and dialogs of the journey, for pictures, each over a made-up Mac. UI thread.
class JourneySnapshots final {
public:
    /// Called when the window stands in a state; is to save the picture.
    using Save = std::function<void(const QString& name)>;

    /// `content` is what the window shows, and `root` what that is over.
    JourneySnapshots(QQuickItem& content, JourneyRoot& root, Save save);
    /// The window is over its own root again.
    ~JourneySnapshots();
    JourneySnapshots(const JourneySnapshots&) = delete;
    JourneySnapshots& operator=(const JourneySnapshots&) = delete;

    void take();
    /// Takes those in which words of another size look different; `suffix` ends their names.
    void takeSome(const QString& suffix);

    /// Brings the window into each state, and calls.
    void pose(const std::function<void(const QString& state, bool telling)>& each);

private:
    /// A made-up Mac and a journey over it.
    struct Stand {
        PosedJourney mac;
        std::unique_ptr<JourneyRoot> root;
    };

    void leave();

    QQuickItem& m_content;
    JourneyRoot& m_root;
    const Save m_save;
    std::unique_ptr<Stand> m_stand;
};

} // namespace wendlow
