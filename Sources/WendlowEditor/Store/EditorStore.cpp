#include "Store/EditorStore.h"

namespace wendlow {

void EditorStore::tell(EditorChanges what) {
    if (what.testFlag(EditorChange::counts))
        Q_EMIT pages().countsChanged();
    if (what.testFlag(EditorChange::scopes))
        Q_EMIT scopes().changed();
    if (what.testFlag(EditorChange::meetings))
        Q_EMIT meetings().changed();
    if (what.testFlag(EditorChange::mods))
        Q_EMIT mods().changed();
    if (what)
        Q_EMIT changed(what);
}

} // namespace wendlow

#include "moc_EditorStore.cpp"
