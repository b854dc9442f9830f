// wendlow-practice-menu: plays the menu-bar application's part in the first-run journey. It makes
// up a download of the local models, answers the request to cancel it, and warms the hook up.

#include "ClientInstance.h"
#include "DistributedNotification.h"
#include "FirstRunWarm.h"
#include "HomeFolder.h"
#include "InfoPlist.h"
#include "InstalledBundle.h"
#include "LocalModelsDoor.h"
#include "LocalModelsUndo.h"
#include "MadeUpDownload.h"
#include "ModelHost.h"
#include "SessionBusAddress.h"
#include "SetupLog.h"
#include "TerminationSignals.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QElapsedTimer>
#include <QThreadPool>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

#include <fmt/format.h>

namespace {

using namespace wendlow;
using namespace std::chrono_literals;

enum ExitStatus { succeeded = 0, wrongUsage = 2 };

constexpr const char* description =
    "Plays the menu-bar application's part in the first-run journey: a download of the local\n"
    "models that tells of gigabytes and puts down a few kilobytes, the answer to a cancel, and "
    "the\n"
    "warm-up of the hook. It ends with the cancel.";

struct Options {
    MadeUpDownload::Manner download;
    std::optional<double> diesAt;
    std::optional<std::chrono::milliseconds> warmsAfter = 0ms;
    bool deaf = false;
    bool staysBehind = false;
    quint16 hostPort = 0;
};

QCommandLineOption option(const char* name, const char* meaning, const char* value = "") {
    return QCommandLineOption(QString::fromUtf8(name), QString::fromUtf8(meaning),
                              QString::fromUtf8(value));
}

QString word(const char* name) {
    return QString::fromUtf8(name);
}

/// The options of the command line, or nothing once what is wrong has been said.
std::optional<Options> optionsIn(const QStringList& words) {
    QCommandLineParser parser;
    parser.setApplicationDescription(word(description));
    parser.addHelpOption();
    parser.addOptions(
        {option("lasts", "How many milliseconds the download takes; 60000 unless told.", "number"),
         option("stalls-at", "Gets no further than this share of it, 0 to 1.", "share"),
         option("dies-at", "Ends there without a word.", "share"),
         option("pid", "Tells another process's number for its own.", "number"),
         option("deaf", "Does not hear a cancel."),
         option("no-undo", "Answers a cancel and leaves the undo to others."),
         option("models-before", "What the model host held before, with commas.", "list"),
         option("host-port", "Plays the model host on this port of the loopback.", "number"),
         option("warms-after", "Warms the hook up after so many milliseconds; 0 unless told.",
                "number"),
         option("no-warm-up", "Does not.")});
    parser.process(words);
    bool good = true;
    const auto number = [&](const char* name, double otherwise) {
        if (!parser.isSet(word(name)))
            return otherwise;
        bool read = false;
        const double value = parser.value(word(name)).toDouble(&read);
        good = good && read && value >= 0;
        return value;
    };
    const auto milliseconds = [&](const char* name, std::chrono::milliseconds otherwise) {
        return std::chrono::milliseconds(
            static_cast<std::int64_t>(number(name, static_cast<double>(otherwise.count()))));
    };
    Options options;
    options.download.lasts = milliseconds("lasts", options.download.lasts);
    if (parser.isSet(word("stalls-at")))
        options.download.stallsAt = number("stalls-at", 1);
    if (parser.isSet(word("dies-at")))
        options.diesAt = number("dies-at", 1);
    if (parser.isSet(word("pid")))
        options.download.pid = static_cast<std::int32_t>(number("pid", 1));
    for (const QString& model : parser.value(word("models-before")).split(u',', Qt::SkipEmptyParts))
        options.download.modelsBefore.push_back(model.toStdString());
    options.hostPort = static_cast<quint16>(number("host-port", 0));
    options.warmsAfter = milliseconds("warms-after", 0ms);
    if (parser.isSet(word("no-warm-up")))
        options.warmsAfter.reset();
    options.deaf = parser.isSet(word("deaf"));
    options.staysBehind = parser.isSet(word("no-undo"));
    if (good && parser.positionalArguments().isEmpty())
        return options;
    fmt::print(stderr, "wendlow-practice-menu: one of these is no number, or of no use: {}\n",
               words.join(u' ').toStdString());
    return std::nullopt;
}

/// The marker of this bundle's build, made by its own hook.
void warmUp(const std::filesystem::path& support) {
    const auto bundle = InstalledBundle::current();
    if (!bundle)
        return;
    const auto contents = *bundle / "Contents";
    const FirstRunWarm::Firing firing{
        .hook = contents / "MacOS" / "wendlow-hook",
        .build = InfoPlist::string(contents / "Info.plist", "CFBundleVersion").value_or("0"),
        .marker = FirstRunWarm::path(support),
        .leash = 10s,
        .home = homeFolder()};
    QThreadPool::globalInstance()->start([firing] { FirstRunWarm::run(firing); });
}

QCoro::Task<> cancel(MadeUpDownload& download, const std::filesystem::path& support,
                     const Options& options) {
    if (!options.staysBehind) {
        auto undoing =
            LocalModelsUndo::perform(LocalModelsUndo::planNow(download.progress().installed),
                                     LocalModelsUndo::Surroundings::current());
        co_await undoing;
        ::unlink(FirstRunWarm::path(support).c_str());
        download.clearAway();
    }
    LocalModelsDoor::writeReceipt(LocalModelsDoor::receiptPath(support));
    SetupLog::drain();
    QCoreApplication::quit();
}

} // namespace

int main(int count, char** words) {
    QCoreApplication application(count, words);
    const auto options = optionsIn(QCoreApplication::arguments());
    if (!options)
        return wrongUsage;
    const TerminationSignals signals;
    const std::string parent = ClientInstance::defaultSupport();
    const std::filesystem::path support = ClientInstance::supportRoot(parent);
    DistributedNotificationCenter notifications(
        QDBusConnection::connectToBus(sessionBusAddress(), uniqueConnectionName()));
    MadeUpDownload download(
        {.support = parent, .files = std::filesystem::path(parent) / "Wendlow Practice/menu"},
        options->download);
    ModelHost host(options->download.modelsBefore);
    if (options->hostPort != 0 && !host.listen(options->hostPort))
        fmt::print(stderr, "wendlow-practice-menu: another has port {}, and plays the host\n",
                   options->hostPort);

    QElapsedTimer elapsed;
    elapsed.start();
    QTimer clock;
    const auto advance = [&] {
        download.advance(std::chrono::milliseconds(elapsed.elapsed()));
        // As a crash would: the file says that it runs, and nobody does.
        if (options->diesAt && download.fraction() >= *options->diesAt)
            std::_Exit(succeeded);
        if (!download.isDone())
            return;
        host.add(std::string(MadeUpDownload::model));
        clock.stop();
    };
    QObject::connect(&clock, &QTimer::timeout, advance);
    clock.start(200ms);
    advance();
    if (options->warmsAfter)
        QTimer::singleShot(*options->warmsAfter, &application, [&] { warmUp(support); });
    bool cancelled = false;
    const auto door = notifications.addObserver(
        LocalModelsDoor::cancelNotification(), [&](const DistributedNotification&) {
            if (options->deaf || std::exchange(cancelled, true))
                return;
            clock.stop();
            cancel(download, support, *options);
        });
    fmt::print("ready\n");
    std::fflush(stdout);
    return QCoreApplication::exec();
}
