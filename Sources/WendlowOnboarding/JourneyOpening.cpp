#include "JourneyOpening.h"

#include "Bounded.h"
#include "ClientInstance.h"
#include "JourneyQuestions.h"
#include "JourneyReceipts.h"
#include "OnboardingTrigger.h"

#include <utility>

namespace wendlow {

QCoro::Task<bool> shouldOpenJourney(std::shared_ptr<WendlowClient> client,
                                    std::chrono::milliseconds limit) {
    using namespace JourneyQuestions;
    const std::filesystem::path support =
        ClientInstance::supportRoot(ClientInstance::defaultSupport());
    OnboardingTrigger::Facts facts{
        .recoveryPassed = RecoveryKeyReceipt::isPassed(RecoveryKeyReceipt::path(support)),
        .termsAgreed = TermsReceipt::isAgreed(TermsReceipt::path(support))};
    // Who has agreed to nothing is led, whatever the daemon would say.
    if (!facts.termsAgreed)
        co_return true;
    auto store = bounded(askStorePresent(client, support / ClientInstance::databaseName), limit);
    facts.storePresent = (co_await store).value_or(false);
    auto grants = bounded(askGrantsAnswer(client), limit);
    facts.grants = (co_await grants).value_or(std::nullopt);
    auto hello = bounded(askHello(client), limit);
    facts.helloReceived = (co_await hello).value_or(std::nullopt);
    co_return OnboardingTrigger::shouldOpenJourney(facts);
}

} // namespace wendlow
