#pragma once

#include "ConnectorTypes.h"

#include <map>
#include <optional>
#include <string>

namespace wendlow {

/// What about an app makes its row open by itself.
struct RowFacts {
    ConnectorState state = ConnectorState::notFound;
    bool unreadable = false; ///< one of the tool's files does not read

    bool operator==(const RowFacts&) const = default;
};

/// Whether a verb has left words beside a row.
enum class VerbWords { none, there };

/// Which rows show their notes. A row with something to tell opens by itself; a person's own choice
/// goes before that until the next verb or until the facts change.
class RowOpenness {
public:
    void choose(const std::string& id, bool open, const RowFacts& facts);
    /// A verb begins: the row stays as it is, whatever a scan finds meanwhile.
    void hold(const std::string& id, bool open);
    /// The verb has ended, or the row is gone.
    void forget(const std::string& id);
    /// A scan found `facts`.
    void observe(const std::string& id, const RowFacts& facts);

    bool isOpen(const std::string& id, const RowFacts& facts, VerbWords words) const;

private:
    struct Choice {
        bool open;
        std::optional<RowFacts> madeAt; ///< nothing: held until forgotten
    };
    std::map<std::string, Choice> m_choices;
};

} // namespace wendlow
