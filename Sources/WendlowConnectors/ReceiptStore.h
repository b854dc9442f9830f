#pragma once

#include "ConnectorReceipt.h"

#include <expected>
#include <filesystem>
#include <string>

namespace wendlow {

/// One tool's receipt on disk: pretty-printed JSON with sorted keys, folder 0700, file 0600.
struct ReceiptStore {
    std::filesystem::path file;

    /// What the file holds; an absent file, or one that does not decode, is an empty receipt.
    ConnectorReceipt read() const;
    /// Equal receipts are equal bytes. The error is a sentence.
    std::expected<void, std::string> write(const ConnectorReceipt& receipt) const;
    /// Removes the file; that it cannot be removed is nobody's concern.
    void remove() const;
};

} // namespace wendlow
