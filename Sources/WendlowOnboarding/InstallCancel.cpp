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
    if (suite.allKeys().isEmpty())
        QFile::remove(path);
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
    // The writer may have put down more since; and it forgets what it has undone.
    if (auto now = LocalModelsProgress::read(file))
        last = std::move(now);
    // That of an earlier cancel would answer for this one.
    removeFile(receipt);
    LocalModelsDoor::postCancel(notifications);
    auto waiting = LocalModelsDoor::awaitReceipt(receipt, limits.answer, limits.every);
    const bool seen = co_await waiting;
    log(seen ? "cancel-install: menu app receipt seen"
             : "cancel-install: menu app receipt NOT seen within 10s");
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
