#pragma once

#include <QString>

#include <chrono>

namespace wendlow {

/// Whether anybody is behind the address of a bus.
enum class BusPulse {
    answers,
    silent, ///< the connection is taken, and then nothing comes
    absent,
};

/// Begins to shake hands with the bus, and goes: the bus's own library would wait for half a
/// minute, and everybody else in this process with it. An address that is no local socket counts as
/// answering. Blocks for `limit` at the most.
BusPulse feelPulse(const QString& busAddress, std::chrono::milliseconds limit);
/// The same of the person's session bus.
BusPulse sessionBusPulse(std::chrono::milliseconds limit);

} // namespace wendlow
