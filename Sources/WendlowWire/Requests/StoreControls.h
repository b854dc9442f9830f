#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Described.h"

namespace wendlow {

/// What is done to the store and its key.
namespace ControlCase {

struct Forget {
    std::string thingID;
    WENDLOW_REQUEST(Forget, "forget", "forget", thingID);
};

/// `rowid` and `witness` go back as the daemon gave them with the line, so that a stale view cannot
/// delete another line.
struct DeleteUtterance {
    std::string meeting;
    std::int64_t rowid = 0;
    std::string witness;
    WENDLOW_REQUEST(DeleteUtterance, "deleteUtterance", "delete_utterance", meeting, rowid,
                    witness);
};

struct DeleteAll {
    WENDLOW_REQUEST(DeleteAll, "deleteAll", "delete_all");
};

struct Export {
    std::string path;
    WENDLOW_REQUEST(Export, "export", "export", path);
};

struct EnterPhrase {
    std::vector<std::string> words;
    WENDLOW_REQUEST(EnterPhrase, "enterPhrase", "enter_phrase", words);
};

struct RevealPhrase {
    WENDLOW_REQUEST(RevealPhrase, "revealPhrase", "reveal_phrase");
};

struct GeneratePhrase {
    WENDLOW_REQUEST(GeneratePhrase, "generatePhrase", "generate_phrase");
};

/// Asks for the store key in `legs` pieces; `StoreKeyWire` has the words of the answer. This
/// application does not send it.
struct StoreKeyForMigration {
    std::int64_t legs = 0;
    WENDLOW_REQUEST(StoreKeyForMigration, "storeKeyForMigration", "store_key_for_migration", legs);
};

} // namespace ControlCase
} // namespace wendlow
