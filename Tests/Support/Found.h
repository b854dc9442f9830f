#pragma once

#include "BlockFinding.h"

#include <string_view>

namespace wendlow::testing {

/// What a block finds in a file of these bytes.
template<class Block, class... More>
BlockFinding found(const Block& block, std::string_view bytes, const More&... more) {
    return block.find(bytes, block.read(bytes), more...);
}

} // namespace wendlow::testing
