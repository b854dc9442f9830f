#include "JourneyContacts.h"

#include "ClientInstance.h"
#include "DistributedNotification.h"
#include "FirstRunWarm.h"
#include "HomeFolder.h"
#include "InfoPlist.h"
#include "InstallCancel.h"
#include "InstalledBundle.h"
#include "JourneyQuestions.h"
#include "JourneyReceipts.h"
#include "LocalModelsScreen.h"
#include "LocalModelsUndo.h"
#include "MenuApplication.h"
#include "TermsPage.h"
#include "UpdateOptIn.h"

#include <QCoroFuture>
#include <QtConcurrentRun>

#include <system_error>
#include <utility>

namespace wendlow {

namespace {

using Client = std::shared_ptr<WendlowClient>;
using namespace JourneyQuestions;

QCoro::Task<std::optional<std::int64_t>> measure(std::optional<std::filesystem::path> bundle) {
    if (!bundle)
        co_return std::nullopt;
    const auto work =
        QtConcurrent::run([path = *bundle] { return LocalModelsScreen::appBundleBytes(path); });
    co_return co_await work;
}

std::optional<std::int64_t> diskSize(const std::filesystem::path& home) {
    std::error_code failed;
    const std::filesystem::space_info space = std::filesystem::space(home, failed);
    return failed ? std::nullopt : std::optional(static_cast<std::int64_t>(space.capacity));
}

std::string buildOf(const std::optional<std::filesystem::path>& bundle) {
    if (!bundle)
        return {};
    return InfoPlist::string(*bundle / "Contents" / "Info.plist", "CFBundleVersion")
        .value_or(std::string());
}

} // namespace

JourneyContacts JourneyContacts::real(Surroundings surroundings) {
    const std::filesystem::path home = homeFolder();
    const std::filesystem::path support =
        ClientInstance::supportRoot(ClientInstance::defaultSupport());
    const std::filesystem::path progress = support / LocalModelsProgress::fileName;
    const std::filesystem::path terms = TermsReceipt::path(support);
    const std::filesystem::path recovery = RecoveryKeyReceipt::path(support);
    const std::filesystem::path wiring = JourneyWiringReceipt::path(support);
    const auto bundle = InstalledBundle::current();
    const Client client = surroundings.client;
    const auto log = surroundings.log;
    DistributedNotificationCenter* const notifications = &surroundings.notifications;
    return {
        .connect = std::move(surroundings.connect),
        .grants = [client] { return askGrants(client); },
        .storePresent =
            [client, database = support / ClientInstance::databaseName] {
                return askStorePresent(client, database);
            },
        .phrase = [client] { return askPhrase(client); },
        .recoveryPassed = [recovery] { return RecoveryKeyReceipt::isPassed(recovery); },
        .markRecoveryPassed = [recovery] { RecoveryKeyReceipt::markPassed(recovery); },
        .termsAgreed = [terms] { return TermsReceipt::isAgreed(terms); },
        .markTermsAgreed = [terms] { TermsReceipt::markAgreed(terms); },
        .setAutoInstall =
            [](bool on) {
                UpdateOptIn::write(on ? UpdateOptIn::Choice::yes : UpdateOptIn::Choice::no,
                                   ClientInstance::menubarID);
            },
        .requestGrant = [client](std::string kind) { return askForGrant(client, std::move(kind)); },
        .forcedScreen = [forced = surroundings.forcedScreen] { return forced; },
        .localModels = [progress] { return LocalModelsProgress::read(progress); },
        .hello = [client] { return askHello(client); },
        .warm = [marker = FirstRunWarm::path(support),
                 build = buildOf(bundle)] { return FirstRunWarm::isWarm(marker, build); },
        .describeUndo =
            [home, support](const LocalModelsProgress::Receipts& receipts) {
                return LocalModelsUndo::describe(
                    LocalModelsUndo::permitted(LocalModelsUndo::planNow(receipts), home, support));
            },
        .cancelInstall =
            [notifications, support, log](std::optional<LocalModelsProgress> last) {
                return InstallCancel::run(std::move(last),
                                          {.notifications = *notifications,
                                           .support = support,
                                           .undo = LocalModelsUndo::Surroundings::current(),
                                           .limits = {},
                                           .log = log});
            },
        .wakeWriter = [log] { MenuApplication::open(std::string(ClientInstance::menubarID), log); },
        .now = [] { return std::chrono::system_clock::now(); },
        .loadWired = [wiring] { return JourneyWiringReceipt::read(wiring); },
        .saveWired =
            [wiring](const std::vector<std::string>& ids) {
                JourneyWiringReceipt::write(ids, wiring);
            },
        .tools = ToolsBefore::onDisk({.home = home, .support = support}, log),
        .measureAppSize = [bundle] { return measure(bundle); },
        .diskBytes = [home] { return diskSize(home); },
        .openTerms = [bundle] { TermsPage::open(bundle); },
        .terminate = std::move(surroundings.terminate),
        .log = log,
    };
}

} // namespace wendlow
