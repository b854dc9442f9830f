// Opening the pane of what gets remembered, from nothing to its first frame with all rules in it.

#include "PosedGateway.h"
#include "Recording/RecordingControlModel.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

Q_IMPORT_QML_PLUGIN(WendlowControlsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsPlugin)

namespace {

using namespace wendlow;

std::vector<Rule> rules(std::int64_t count) {
    std::vector<Rule> list;
    for (std::int64_t at = 0; at < count; ++at) {
        const auto kind = allCases<RuleKind>()[static_cast<std::size_t>(at) % 5];
        const bool isNever = kind != RuleKind::app && kind != RuleKind::site ? true : at % 2 == 0;
        list.push_back({.id = "r" + std::to_string(at),
                        .kind = kind,
                        .value = "value-" + std::to_string(at) + ".example",
                        .tier = isNever ? RuleTier::never : RuleTier::usageOnly,
                        .origin = RuleOrigin::user,
                        .enabled = true});
    }
    return list;
}

void openRecording(benchmark::State& state) {
    const auto client =
        PosedGateway::client({{"get_rules", AnswerCase::Rules{rules(state.range(0))}},
                              {"favicons", AnswerCase::Icons{}}});
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    QQmlComponent component(
        &engine, QUrl(QStringLiteral("qrc:/qt/qml/WendlowSettings/Recording/RecordingPane.qml")));
    QQuickWindow window;
    window.resize(756, 832);
    window.show();
    for (auto _ : state) {
        RecordingControlModel model(client, {.installed = nullptr, .choose = nullptr});
        const std::unique_ptr<QObject> made(component.createWithInitialProperties(
            {{QStringLiteral("model"), QVariant::fromValue<QObject*>(&model)}}));
        auto* const pane = qobject_cast<QQuickItem*>(made.get());
        if (pane == nullptr)
            throw std::runtime_error(component.errorString().toStdString());
        pane->setParentItem(window.contentItem());
        pane->setSize(window.size());
        while (!model.settled())
            QCoreApplication::processEvents();
        benchmark::DoNotOptimize(window.grabWindow());
        if (model.rules().size() != static_cast<std::size_t>(state.range(0)))
            throw std::runtime_error("the pane does not show its rules");
    }
}
BENCHMARK(openRecording)->Arg(20)->Arg(2000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    benchmark::Initialize(&argc, argv);
    const QGuiApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
