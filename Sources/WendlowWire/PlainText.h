#pragma once

#include <string>
#include <string_view>

/// What is done to texts that people typed, in UTF-8 of any script. Bytes that are no UTF-8 are
/// left as they are.
namespace wendlow::PlainText {

/// Without white space and line ends at both ends, a view of the same text. A no-break space counts
/// as white space.
std::string_view trimmed(std::string_view text);

/// Each letter in lower case, one for one. Does not depend on the process's locale.
std::string lowerCased(std::string_view text);

} // namespace wendlow::PlainText
