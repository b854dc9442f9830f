#pragma once

#include "EditorWindow.h"
#include "FrameWork.h"

#include <benchmark/benchmark.h>

#include <QTimer>

#include <algorithm>
#include <functional>

namespace wendlow::benchmarks {

/// A fast wheel: so much of the list goes by from one frame to the next.
inline constexpr int rowsPerFrame = 5;

/// Moves a list by some rows for each frame of a screen of 60 a second, until it is done or, at the
/// end of the list, for so long as `isOver` says no.
inline void scroll(QQuickWindow& window, QQuickItem& list, int rowHeight,
                   const std::function<bool()>& isOver) {
    QTimer frames;
    frames.setTimerType(Qt::PreciseTimer);
    QObject::connect(&frames, &QTimer::timeout, &list, [&] {
        const double end = list.property("originY").toDouble() +
                           list.property("contentHeight").toDouble() - list.height();
        const double next = list.property("contentY").toDouble() + rowsPerFrame * rowHeight;
        list.setProperty("contentY", std::max(0.0, std::min(next, end)));
        window.update();
    });
    frames.start(16);
    runUntil(isOver, std::chrono::minutes(5));
}

inline bool isAtEnd(const QQuickItem& list) {
    return list.property("atYEnd").toBool();
}

inline void report(benchmark::State& state, const FrameWork& frames) {
    state.counters["frames"] = static_cast<double>(frames.frames());
    state.counters["median_ms"] = frames.work().median;
    state.counters["longest_ms"] = frames.work().longest;
    state.counters["above_16_ms"] = frames.work().above16;
    state.counters["drawing_median_ms"] = frames.drawing().median;
    state.counters["drawing_longest_ms"] = frames.drawing().longest;
}

} // namespace wendlow::benchmarks
