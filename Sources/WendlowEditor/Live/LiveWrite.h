#pragma once

#include "Live/EditorLink.h"
#include "Model/EditorRules.h"

namespace wendlow::LiveWrite {

/// Sends a write; what became of it, in words. The link may go meanwhile.
QCoro::Task<EditorWriteOutcome> send(EditorLink& link, NotesRequest request);

} // namespace wendlow::LiveWrite
