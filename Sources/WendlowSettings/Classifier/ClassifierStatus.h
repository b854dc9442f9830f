#pragma once

#include <QVariantMap>

#include <string>
#include <variant>

namespace wendlow {

/// Which local model reads the captures, and how it is.
struct ClassifierStatus {
    struct Error {
        std::string words;
    };
    struct Running {};
    struct Loading {};
    using Health = std::variant<Error, Running, Loading>;

    std::string model;
    std::string runtime;
    std::string sizeOnDisk;
    Health health;

    /// The one that this product has.
    static ClassifierStatus current();

    /// What a person reads of its health.
    std::string healthWord() const;
    /// For the pane: `model`, `runtime`, `sizeOnDisk`, `word`, and `tone`, which is "running",
    /// "loading" or "error".
    QVariantMap map() const;
};

} // namespace wendlow
