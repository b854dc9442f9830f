#include "LogCategories.h"

namespace wendlow::LogCategory {

Q_LOGGING_CATEGORY(notifications, "works.fenmoor.wendlow.notifications")
Q_LOGGING_CATEGORY(appearance, "works.fenmoor.wendlow.appearance")
Q_LOGGING_CATEGORY(editorOpen, "works.fenmoor.wendlow.editor-open")

} // namespace wendlow::LogCategory
