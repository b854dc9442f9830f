#pragma once

#include <QObject>

#include <vector>

class QQuickWindow;

namespace wendlow::benchmarks {

/// Processor time of this thread, in milliseconds. A busy machine does not lengthen it.
double threadMilliseconds();

/// The middle and the longest of some times.
struct Spread {
    double median = 0;
    double longest = 0;
    double above16 = 0; ///< how many took longer than a frame of a screen of 60 a second has
    static Spread of(std::vector<double> times);
};

/// What the UI thread works for each frame of a window: everything since the last frame, events,
/// layout and handing over to the renderer. Drawing, which the processor does here on the same
/// thread and a graphics card would do elsewhere, is counted apart. In milliseconds of processor
/// time. Starts with the object.
class FrameWork : public QObject {
public:
    explicit FrameWork(QQuickWindow& window);

    Spread work() const { return Spread::of(m_work); }
    Spread drawing() const { return Spread::of(m_drawing); }
    std::size_t frames() const { return m_work.size(); }

private:
    double m_frameStart = threadMilliseconds();
    double m_drawingStart = 0;
    std::vector<double> m_work;
    std::vector<double> m_drawing;
};

} // namespace wendlow::benchmarks
