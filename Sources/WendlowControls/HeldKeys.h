#pragma once

#include <QObject>
#include <QWindow>

namespace wendlow {

/// A key that is held presses once: what Return, Enter and Space do again and again by themselves
/// comes to nothing in a window, but for where they write. A button, a row or a field would each be
/// pressed as often as the keyboard repeats, and so would whatever has the focus after it.
class HeldKeys final : public QObject {
    Q_OBJECT

public:
    /// Watches the window for as long as it lives.
    static void pressOnceIn(QWindow& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit HeldKeys(QWindow& window);
};

} // namespace wendlow
