#include "PhraseRoom.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <sodium.h>

#include "DiagnosticRequest.h"
#include "PlainText.h"
#include "StoreMessage.h"

namespace wendlow {
namespace {

constexpr std::string_view keyPhrase = "key.phrase";

/// What is asked of the gateway itself, or of its key.
constexpr std::array<std::string_view, 11> storeless{
    ReadCase::RecoveryState::verb,
    ReadCase::DaemonBuild::verb,
    ReadCase::DiagnosticLoggingState::verb,
    ReadCase::Grants::verb,
    ControlCase::RevealPhrase::verb,
    ControlCase::EnterPhrase::verb,
    ControlCase::GeneratePhrase::verb,
    ControlCase::SetDiagnosticLogging::verb,
    ControlCase::RequestGrant::verb,
    ControlCase::Shutdown::verb,
    DiagnosticCase::Log::verb,
};

AnswerCase::Failure refused(const StoreMessage& message) {
    return {message.text()};
}

} // namespace

PhraseRoom::PhraseRoom(DocumentStore& documents)
    : m_database(documents.database()), m_settings(m_database) {}

std::optional<std::vector<std::string>> PhraseRoom::phrase() {
    auto kept = m_settings.value(keyPhrase);
    if (!kept)
        return std::nullopt;
    std::vector<std::string> words;
    for (std::string_view rest = *kept; !rest.empty();) {
        const auto end = std::min(rest.find(' '), rest.size());
        words.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return words;
}

void PhraseRoom::makeKey(std::string_view bytes) {
    if (phrase())
        return;
    m_settings.set(keyPhrase, fmt::format("{}", fmt::join(RecoveryWords::phraseOf(bytes), " ")));
    m_settings.setFlag(keyHeld, true);
}

void PhraseRoom::protect(StoreProtection protection) {
    m_settings.setFlag(keyNone, protection == StoreProtection::plaintext);
    if (protection == StoreProtection::plaintext)
        return;
    if (!phrase())
        answer(ControlCase::GeneratePhrase{});
    m_settings.setFlag(keyHeld, protection == StoreProtection::armed);
}

std::optional<GatewayResponse> PhraseRoom::whileLocked(std::string_view verb) {
    if (isPlain() || holdsKey() || !phrase() ||
        std::ranges::find(storeless, verb) != storeless.end())
        return std::nullopt;
    return lockedSentence();
}

GatewayResponse PhraseRoom::lockedSentence() {
    const std::filesystem::path file = m_database.file();
    StoreCase::FolderIsNotEmpty locked{.folder = file.parent_path().string(),
                                       .present = {},
                                       .couldNotRead = {},
                                       .aPhraseCouldBeChecked = true};
    std::error_code error;
    for (std::filesystem::directory_iterator entry(file.parent_path(), error), end;
         !error && entry != end; entry.increment(error))
        locked.present.push_back(entry->path().filename().string());
    return refused(std::move(locked));
}

GatewayResponse PhraseRoom::answer(const ReadCase::RecoveryState& /*request*/) {
    if (isPlain())
        return AnswerCase::Text{"plaintext"};
    if (holdsKey())
        return AnswerCase::Text{"armed"};
    return AnswerCase::Text{phrase() ? "locked" : "new"};
}

GatewayResponse PhraseRoom::answer(const ControlCase::GeneratePhrase& /*request*/) {
    std::string bytes(RecoveryWords::keyBytes, '\0');
    randombytes_buf(bytes.data(), bytes.size());
    makeKey(bytes);
    return answer(ControlCase::RevealPhrase{});
}

GatewayResponse PhraseRoom::answer(const ControlCase::RevealPhrase& /*request*/) {
    if (isPlain())
        return refused(StoreWord::revealHasNoKeyBecauseThisBuildHasNone);
    if (!holdsKey())
        return refused(StoreWord::revealHasNoKeyOnThisMac);
    return AnswerCase::Phrase{phrase().value()};
}

GatewayResponse PhraseRoom::answer(const ControlCase::EnterPhrase& request) {
    if (isPlain())
        return refused(StoreWord::enterHasNothingToUnlockOnThisBuild);
    std::vector<std::string> words = request.words;
    std::ranges::transform(words, words.begin(), PlainText::lowerCased);
    if (words.size() != RecoveryWords::count)
        return refused(StoreCase::PhraseWrongWordCount{RecoveryWords::count, std::ssize(words)});
    for (const std::string& word : words)
        if (!RecoveryWords::isWord(word))
            return refused(StoreCase::PhraseUnknownWord{word});
    if (!RecoveryWords::checks(words))
        return refused(StoreWord::phraseBadChecksum);
    const auto right = phrase();
    if (!right)
        return refused(StoreWord::noKeyWasFoundOnThisMac);
    if (holdsKey())
        return refused(
            StoreCase::RefusedAKeyIsAlreadyHere{.opened = 1, .tried = 1, .couldNotRead = {}});
    if (words != *right)
        return refused(StoreCase::RefusedPhraseOpenedNothing{.tried = 1, .couldNotRead = {}});
    m_settings.setFlag(keyHeld, true);
    return AnswerCase::Text{StoreMessage(StoreCase::PhraseAccepted{.opened = 1,
                                                                   .tried = 1,
                                                                   .didNotOpen = {},
                                                                   .couldNotRead = {},
                                                                   .notProbed = {},
                                                                   .limit = 1})
                                .text()};
}

} // namespace wendlow
