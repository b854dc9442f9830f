#include "FrameWork.h"

#include <QQuickWindow>

#include <algorithm>
#include <ctime>

namespace wendlow::benchmarks {

double threadMilliseconds() {
    timespec now{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

Spread Spread::of(std::vector<double> times) {
    if (times.empty())
        return {};
    std::ranges::sort(times);
    const auto above = std::ranges::count_if(times, [](double time) { return time > 16; });
    return {.median = times[times.size() / 2],
            .longest = times.back(),
            .above16 = static_cast<double>(above)};
}

FrameWork::FrameWork(QQuickWindow& window) {
    connect(&window, &QQuickWindow::afterSynchronizing, this, [this] {
        m_drawingStart = threadMilliseconds();
        m_work.push_back(m_drawingStart - m_frameStart);
    });
    connect(&window, &QQuickWindow::frameSwapped, this, [this] {
        m_frameStart = threadMilliseconds();
        m_drawing.push_back(m_frameStart - m_drawingStart);
    });
}

} // namespace wendlow::benchmarks
