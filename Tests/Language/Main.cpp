#include "CatalogueTranslator.h"
#include "Files.h"
#include "RunProgram.h"
#include "TemporaryHome.h"
#include "Translation.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QtQml/QQmlExtensionPlugin>

#include <gtest/gtest.h>

Q_IMPORT_QML_PLUGIN(WendlowControlsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowEditorBenchesPlugin)
Q_IMPORT_QML_PLUGIN(WendlowEditorPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsAppPlugin)
Q_IMPORT_QML_PLUGIN(WendlowOnboardingPlugin)
Q_IMPORT_QML_PLUGIN(WendlowStatsPlugin)

using namespace wendlow;
namespace support = wendlow::testing;

namespace {

void run(const std::string& command) {
    const auto ran = support::runProgram("/bin/sh", {"-c", command});
    if (ran.status != 0)
        qFatal("%s: %s", command.c_str(), ran.err.c_str());
}

/// Puts the holes of the translations in brackets of their own.
QString withHolesMarked(const QString& catalogue) {
    static const QRegularExpression hole(QStringLiteral(R"(((?<!\{)\{[^{}]*\}(?!\})|%\d))"));
    QStringList lines = catalogue.split(u'\n');
    bool isTranslation = false;
    for (QString& line : lines) {
        isTranslation = line.startsWith(u"msgstr") || (isTranslation && line.startsWith(u'"'));
        if (isTranslation)
            line.replace(hole, QStringLiteral("⟨\\1⟩"));
    }
    return lines.join(u'\n');
}

/// Makes a catalogue of what the sources say, each sentence in brackets, and speaks by it.
void speakInBrackets(const std::filesystem::path& folder) {
    const auto there = folder / "locale" / "qps" / "LC_MESSAGES";
    std::filesystem::create_directories(there);
    const std::filesystem::path catalogue = folder / "qps.po";
    run("python3 '" WENDLOW_TREE "/Scripts/words.py' --pseudo '" + catalogue.string() + "'");
    const QString said = QString::fromStdString(support::get(catalogue).value());
    support::put(catalogue, withHolesMarked(said).toStdString());
    run("msgfmt -o '" + (there / "wendlow.mo").string() + "' '" + catalogue.string() + "'");
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("LANGUAGE", "qps");
    Translation::begin(folder);
    if (!Translation::isLoaded())
        qFatal("the catalogue was not found");
}

} // namespace

/// Windows without a display, over a home in which there is nothing.
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();
    const support::TemporaryHome home;
    speakInBrackets(home.path());
    qputenv("HOME", home.path().c_str());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    CatalogueTranslator translator;
    QCoreApplication::installTranslator(&translator);
    return RUN_ALL_TESTS();
}
