#pragma once

#include "Client.h"
#include "Journey.h"
#include "JourneyContacts.h"

#include <QCoroTask>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

/// What the journey asks of the daemon. Each takes by value all that it needs, since whoever asked
/// may be gone before the answer; and each may never be answered.
namespace wendlow::JourneyQuestions {

using Client = std::shared_ptr<WendlowClient>;

QCoro::Task<std::optional<GrantPair>> askGrants(Client client);
/// The store's file is in its place, or a gateway that keeps it elsewhere says that it records, or
/// would.
QCoro::Task<bool> askStorePresent(Client client, std::filesystem::path database);
QCoro::Task<RecoveryRead> askPhrase(Client client);
QCoro::Task<> askForGrant(Client client, std::string kind);
/// Nothing: it is not known.
QCoro::Task<std::optional<bool>> askHello(Client client);
/// Grants as they were answered, for who opens the journey.
QCoro::Task<std::optional<GrantsAnswer>> askGrantsAnswer(Client client);

} // namespace wendlow::JourneyQuestions
