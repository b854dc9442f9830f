#include "EditorWindow.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>

int main(int argc, char** argv) {
    using namespace wendlow::benchmarks;
    drawOffScreen();
    benchmark::Initialize(&argc, argv);
    Gateways::running(); // before anything looks for a bus
    const QGuiApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
