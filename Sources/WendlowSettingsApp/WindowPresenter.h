#pragma once

#include "WindowDescription.h"

#include <QObject>
#include <QWindow>

#include <functional>
#include <map>
#include <memory>

namespace wendlow {

/// Owns the windows, at most one of each kind, for the rest of the process. A closed window stays
/// in its slot with its content and comes back as it was. UI thread.
class WindowPresenter final : public QObject {
    Q_OBJECT

public:
    /// Makes the window of a kind with its content, hidden. Dressing and placing it is not its
    /// work.
    using Make = std::function<std::unique_ptr<QWindow>(WindowKind)>;

    explicit WindowPresenter(Make make);
    ~WindowPresenter() override;

    /// Brings the kind's window to the front, making it on first need.
    QWindow& present(WindowKind kind);
    /// In front, with the focus; back from being minimized.
    static void bringToFront(QWindow& window);
    /// Null while the kind has had no window yet.
    QWindow* window(WindowKind kind) const;

private:
    QWindow& build(WindowKind kind);
    static void place(QWindow& window, const WindowDescription& description);

    const Make m_make;
    std::map<WindowKind, std::unique_ptr<QWindow>> m_slots;
};

} // namespace wendlow
