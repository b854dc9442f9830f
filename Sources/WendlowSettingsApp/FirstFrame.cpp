#include "FirstFrame.h"

#include <QCoreApplication>
#include <QQuickWindow>

#include <fmt/format.h>

#include <cstdio>
#include <ctime>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include <unistd.h>

namespace wendlow::FirstFrame {

namespace {

/// Milliseconds from the start of the process, by the clock that runs since boot.
long long sinceProcessStart() {
    std::string stat;
    std::getline(std::ifstream("/proc/self/stat"), stat);
    // The second field is the program's name, which may hold blanks and brackets.
    std::istringstream fields(stat.substr(stat.rfind(')') + 1));
    std::string field;
    constexpr int startTime = 22 - 2;
    for (int count = 0; count < startTime; ++count)
        fields >> field;
    const long long started = std::stoll(field) * 1000 / ::sysconf(_SC_CLK_TCK);
    timespec now = {};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return now.tv_sec * 1000LL + now.tv_nsec / 1000000 - started;
}

long long residentKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:"))
            return std::stoll(line.substr(6));
    }
    return 0;
}

} // namespace

void then(QWindow& window, std::function<void()> act) {
    auto* const quick = qobject_cast<QQuickWindow*>(&window);
    // The signal may come from the render thread, and a second one before this thread has heard of
    // the first.
    QObject::connect(
        quick, &QQuickWindow::frameSwapped, qApp,
        [act = std::make_shared<std::function<void()>>(std::move(act))] {
            if (const auto once = std::exchange(*act, nullptr))
                once();
        },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

void reportAndQuit(QWindow& window, std::function<bool()> isComplete) {
    auto* const quick = qobject_cast<QQuickWindow*>(&window);
    const auto complete = std::make_shared<bool>(false);
    QObject::connect(quick, &QQuickWindow::afterAnimating, qApp,
                     [complete, isComplete = std::move(isComplete)] { *complete = isComplete(); });
    // The signal may come from the render thread; what is done about it belongs to this one.
    QObject::connect(
        quick, &QQuickWindow::frameSwapped, qApp,
        [complete] {
            if (!std::exchange(*complete, false))
                return;
            fmt::print("first-frame {} ms, resident {} KB\n", sinceProcessStart(),
                       residentKilobytes());
            std::fflush(stdout);
            QCoreApplication::quit();
        },
        Qt::QueuedConnection);
}

} // namespace wendlow::FirstFrame
