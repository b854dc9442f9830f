#include "PhraseRoom.h"

#include <algorithm>

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <sodium.h>

#include "PlainText.h"
#include "StoreMessage.h"

namespace wendlow {
namespace {

constexpr std::string_view keyPhrase = "key.phrase";
constexpr std::string_view keyHeld = "key.held";

AnswerCase::Failure refused(const StoreMessage& message) {
    return {message.text()};
}

} // namespace

PhraseRoom::PhraseRoom(DocumentStore& documents) : m_settings(documents.database()) {}

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

GatewayResponse PhraseRoom::answer(const ReadCase::RecoveryState& /*request*/) {
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
    if (!holdsKey())
        return refused(StoreWord::revealHasNoKeyOnThisMac);
    return AnswerCase::Phrase{phrase().value()};
}

GatewayResponse PhraseRoom::answer(const ControlCase::EnterPhrase& request) {
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
        return refused(StoreWord::refusedFolderIsEmpty);
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
