#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ControlRequest.h"
#include "DocumentStore.h"
#include "GatewayResponse.h"
#include "ReadRequest.h"
#include "Settings.h"

namespace wendlow {

/// Whether the store has a key, and whether that is here.
enum class StoreProtection { armed, locked, plaintext };

/// The recovery phrase, played through: the words stand for a key with which nothing is locked.
/// Throws `DatabaseError`.
class PhraseRoom {
public:
    static std::string_view schema() { return {}; } ///< three settings

    explicit PhraseRoom(DocumentStore& documents);

    /// "armed" while the key is here, "locked" when the store has one and it is gone, "new" before
    /// there is any, "plaintext" for a store without one.
    GatewayResponse answer(const ReadCase::RecoveryState& request);
    /// The words of the key that is here; one is made where there never was any.
    GatewayResponse answer(const ControlCase::GeneratePhrase& request);
    GatewayResponse answer(const ControlCase::RevealPhrase& request);
    /// The right words bring a lost key back; any others say what is wrong with them.
    GatewayResponse answer(const ControlCase::EnterPhrase& request);

    /// A key of these bytes, unless there is or was one.
    void makeKey(std::string_view bytes);
    /// Plays this from now on. Locked and armed make a key where there never was one.
    void protect(StoreProtection protection);

    /// What a locked store says to whatever is asked of it; nothing for what asks nothing of the
    /// store, and while it is not locked.
    std::optional<GatewayResponse> whileLocked(std::string_view verb);

private:
    static constexpr std::string_view keyHeld = "key.held";
    static constexpr std::string_view keyNone = "key.none";

    bool holdsKey() { return m_settings.flag(keyHeld, false); }
    bool isPlain() { return m_settings.flag(keyNone, false); }
    GatewayResponse lockedSentence();
    std::optional<std::vector<std::string>> phrase();

    PracticeDatabase& m_database;
    Settings m_settings;
};

/// Twelve words for eleven bytes and their check.
namespace RecoveryWords {

inline constexpr std::size_t count = 12;
inline constexpr std::size_t keyBytes = count - 1;

/// `key` has `keyBytes` bytes.
std::vector<std::string> phraseOf(std::string_view key);

/// Case and order as in a phrase.
bool isWord(std::string_view word);

/// Whether the last word is the check of the others; all of them are words.
bool checks(const std::vector<std::string>& words);

} // namespace RecoveryWords
} // namespace wendlow
