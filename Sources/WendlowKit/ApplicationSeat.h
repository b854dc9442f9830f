#pragma once

#include "WindowDoor.h"

#include <QDBusConnection>
#include <QObject>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace wendlow {

/// The one place on the session bus that the running application has. Whoever starts it once more
/// finds the place taken and hands over what it was asked for, so that there are never two. Who
/// dials no bus has no place, and runs alone.
class ApplicationSeat final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "works.fenmoor.wendlow.Application")

public:
    using Told = std::function<void()>;

    /// What a start is asked for.
    struct Wish {
        std::optional<WindowDoor::Pane> pane;    ///< nothing: whatever is open
        std::optional<std::string> settingsPane; ///< the pane of Settings to turn to
    };
    enum class Taken {
        ours,
        others, ///< another process has it
        never,  ///< the bus did not say
    };
    enum class Heard {
        yes,
        nobody, ///< no application runs, or it went meanwhile
        silent, ///< one runs, and does not answer
    };

    /// For a person, of one that is `silent`.
    static std::string unheardSentence();

    explicit ApplicationSeat(QObject* parent = nullptr);

    /// Takes the place on this bus, where it is free. Whoever finds it taken from then on is
    /// answered once this thread's event loop runs, and heard by whoever listened on this
    /// connection before. Blocks for ten seconds at most, and only on a bus that
    /// has just answered.
    Taken take(QDBusConnection bus);
    /// The same without waiting, for a bus that came late: where another has the place, both go on.
    void takeLater(QDBusConnection bus);

    /// Who is told of a start that named no window.
    void tell(Told told) { m_told = std::move(told); }

    /// Asks the running application for a window, and waits until it has heard. Posts what the door
    /// listens for; no service is started.
    static Heard ask(const QDBusConnection& bus, const Wish& wish,
                     std::chrono::milliseconds limit = std::chrono::seconds(10));

public Q_SLOTS:
    /// Over the bus: the application was started once more. An answer to this says that whatever
    /// the same process posted before has been heard.
    Q_SCRIPTABLE void StartedAgain(bool namesWindow);

private:
    Told m_told;
};

} // namespace wendlow
