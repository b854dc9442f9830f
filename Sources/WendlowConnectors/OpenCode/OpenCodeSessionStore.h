#pragma once

#include "ConnectorTypes.h"

#include <cstddef>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace wendlow {

/// OpenCode's session database, which a running OpenCode may be writing at the same moment. Read
/// only, one connection for each call, and nothing is left beside a database that nobody has open.
/// Blocks, for up to a second and a half where a question is put to a database that is locked; any
/// thread.
namespace OpenCodeSessionStore {

using Path = std::filesystem::path;

/// Which OpenCode last shaped a database.
enum class Writer {
    opencode1,
    opencode2,
    unknown, ///< neither's tables are there, or what stands there is no database
    locked,  ///< it is kept by another program for as long as we wait
};

/// Nothing where there is no file at all.
std::optional<Writer> writer(const Path& database);

/// Whether a person goes on using OpenCode 1 on a store that OpenCode 2 has taken over: a session
/// of the old kind was written since then, and in the seven days before `now`. No answer is no.
bool isOpenCode1StillUsed(const Path& database, FileDate now);

/// A folder that sessions were held in.
struct Sighting {
    std::string directory;
    FileDate lastActivity; ///< of its latest session

    bool operator==(const Sighting&) const = default;
};

struct Decoded {
    std::vector<Sighting> sightings; ///< the most recently active first
    std::size_t skipped = 0;         ///< rows that named no folder, or no time

    bool operator==(const Decoded&) const = default;
};

/// Why there is nothing to be read: a sentence, mostly in the database's own words.
struct Refusal {
    std::string reason;

    bool operator==(const Refusal&) const = default;
};

/// Every folder of OpenCode 2's sessions. Needs memory for the folders, not for the rows. Does not
/// wait where the database is locked.
std::expected<Decoded, Refusal> read(const Path& database);

} // namespace OpenCodeSessionStore
} // namespace wendlow
