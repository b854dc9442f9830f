#pragma once

#include <boost/describe/enum.hpp>

namespace wendlow {

/// What became of a line of a transcript that was to be deleted. `staleWitness`: the line changed
/// since it was read.
enum class LineDeleteOutcome { deleted, staleWitness, notFound };
BOOST_DESCRIBE_ENUM(LineDeleteOutcome, deleted, staleWitness, notFound)

} // namespace wendlow
