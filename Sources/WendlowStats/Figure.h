#pragma once

#include <QString>

#include <cstdint>

namespace wendlow::Dashboard {

/// A number in the words of its kind, which can be counted up to.
struct Figure {
    enum class Kind { time, storage, count, percent };

    Kind kind = Kind::count;
    std::int64_t amount = 0; ///< seconds, bytes, or a count
    double percent = 0;      ///< of its own kind alone
    bool operator==(const Figure&) const = default;

    QString words() const;
    /// A part of it, from 0 to below 1, in the same words.
    QString wordsAt(double part) const;
};

} // namespace wendlow::Dashboard
