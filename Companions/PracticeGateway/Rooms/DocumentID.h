#pragma once

#include <string>
#include <string_view>

/// How things are called. Pure.
namespace wendlow::DocumentID {

/// The id under which a thing is kept. A memory is cited as "m:29" by what knows its row and as
/// "m:m29" in a card of rules: both are m29. Everything else stands as it is; a bare number is a
/// moment.
std::string kept(std::string_view cited);

} // namespace wendlow::DocumentID
