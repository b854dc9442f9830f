#pragma once

#include "Model/EditorMemory.h"
#include "Model/EditorMoment.h"
#include "Model/SharedRows.h"

namespace wendlow {

using EditorRows = SharedRows<EditorMemoryHit>;
using EditorMoments = SharedRows<EditorMoment>;

} // namespace wendlow
