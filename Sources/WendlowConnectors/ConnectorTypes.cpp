#include "ConnectorTypes.h"

namespace wendlow {

std::string_view text(ConnectorState state) {
    switch (state) {
    case ConnectorState::notFound:
        return "notFound";
    case ConnectorState::found:
        return "found";
    case ConnectorState::connected:
        return "connected";
    case ConnectorState::drifted:
        break;
    }
    return "drifted";
}

std::string_view text(ConnectorOutcome::Result result) {
    switch (result) {
    case ConnectorOutcome::Result::changed:
        return "changed";
    case ConnectorOutcome::Result::unchanged:
        return "unchanged";
    case ConnectorOutcome::Result::refused:
        break;
    }
    return "refused";
}

} // namespace wendlow
