#pragma once

#include <atomic>

namespace wendlow {

/// Whether the daemon has ever answered this client; never forgotten. Any thread.
class DoorHistory {
public:
    bool connected() const { return m_connected; }
    void setConnected() { m_connected = true; }

private:
    std::atomic<bool> m_connected = false;
};

} // namespace wendlow
