#include "InstallCancel.h"

#include "ClientInstance.h"
#include "JourneyReceipts.h"
#include "LocalModelsDoor.h"
#include "UpdateOptIn.h"

#include <QCoroFuture>
#include <QFile>
#include <QSettings>
#include <QtConcurrentRun>

#include <system_error>
#include <utility>

#include <unistd.h>

namespace wendlow::InstallCancel {

namespace {

void removeFile(const std::filesystem::path& file) {
    ::unlink(file.c_str()); // gone already is as good
}

/// The choice about updates was made in this journey. Others' keys keep the file.
void forgetUpdateChoice() {
    const QString path = QString::fromStdString(UpdateOptIn::suitePath(ClientInstance::menubarID));
    if (!QFile::exists(path))
        return;
    QSettings suite(path, QSettings::IniFormat);
    suite.remove(QString::fromUtf8(UpdateOptIn::key));
    suite.sync();
    if (!suite.allKeys().isEmpty())
        return;
    QFile::remove(path);
    ::rmdir(std::filesystem::path(path.toStdString()).parent_path().c_str()); // once it is empty
}

/// What either tells of. A writer that has undone something may tell of it no more, and one that
/// goes on tells of more.
LocalModelsProgress::Receipts either(LocalModelsProgress::Receipts now,
                                     const LocalModelsProgress::Receipts& before) {
    const auto keep = [&](auto field) {
        if (!(now.*field))
            now.*field = before.*field;
    };
    using Receipts = LocalModelsProgress::Receipts;
    keep(&Receipts::runtimeDir);
    keep(&Receipts::agentPlist);
    keep(&Receipts::pulledModel);
    keep(&Receipts::asrCacheDir);
    keep(&Receipts::senkoDir);
    keep(&Receipts::ollama);
    keep(&Receipts::pullBeganAt);
    return now;
}

/// The newest reading, with what the one before tells of.
std::optional<LocalModelsProgress> reread(std::optional<LocalModelsProgress> last,
                                          const std::filesystem::path& file) {
    auto now = LocalModelsProgress::read(file);
    if (!now)
        return last;
    if (last)
        now->installed = either(std::move(now->installed), last->installed);
    return now;
}

enum class Writer { gone, alive };

/// What is asked once more at the next journey; and the folder, once nothing is in it.
void forget(const std::filesystem::path& support, Writer writer) {
    removeFile(TermsReceipt::path(support));
    removeFile(RecoveryKeyReceipt::path(support));
    removeFile(JourneyWiringReceipt::path(support));
    removeFile(LocalModelsDoor::receiptPath(support));
    // A writer that still runs writes on.
    if (writer == Writer::gone)
        removeFile(support / LocalModelsProgress::fileName);
    forgetUpdateChoice();
    ::rmdir((support / "Connectors").c_str());
    ::rmdir(support.c_str());
}

} // namespace

QCoro::Task<CancelEnd> run(std::optional<LocalModelsProgress> last, Surroundings surroundings) {
    const auto& [notifications, support, undo, limits, log] = surroundings;
    log("cancel-install: asking the menu app to stop and undo");
    const std::filesystem::path file = support / LocalModelsProgress::fileName;
    const std::filesystem::path receipt = LocalModelsDoor::receiptPath(support);
    last = reread(std::move(last), file);
    // That of an earlier cancel would answer for this one.
    removeFile(receipt);
    LocalModelsDoor::postCancel(notifications);
    auto waiting = LocalModelsDoor::awaitReceipt(receipt, limits.answer, limits.every);
    const bool seen = co_await waiting;
    log(seen ? "cancel-install: menu app receipt seen"
             : "cancel-install: menu app receipt NOT seen within 10s");
    // Whoever did not hear has put down more meanwhile.
    last = reread(std::move(last), file);
    const LocalModelsProgress::Receipts installed =
        last ? last->installed : LocalModelsProgress::Receipts();
    const auto planning =
        QtConcurrent::run([installed] { return LocalModelsUndo::planNow(installed); });
    LocalModelsUndo::Steps steps = co_await planning;
    auto undoing = LocalModelsUndo::perform(std::move(steps), undo);
    co_await undoing;
    const bool runsOn = !seen && last && last->writerAlive();
    forget(support, runsOn ? Writer::alive : Writer::gone);
    co_return runsOn ? CancelEnd::writerStillRuns : CancelEnd::stopped;
}

} // namespace wendlow::InstallCancel
