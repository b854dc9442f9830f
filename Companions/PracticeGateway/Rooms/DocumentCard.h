#pragma once

#include "Document.h"
#include "Records/Card.h"

namespace wendlow {

/// A document as the contract's card.
namespace DocumentCard {

/// With the whole text.
Card whole(const Document& document);
/// With the text's beginning only.
Card brief(const Document& document);

/// At most `characters` of `text`, cut between two characters, with an ellipsis where it was cut;
/// on one line.
std::string beginning(std::string_view text, std::size_t characters);

} // namespace DocumentCard
} // namespace wendlow
