#include "LogCategories.h"

namespace wendlow::LogCategory {

Q_LOGGING_CATEGORY(notifications, "works.fenmoor.wendlow.notifications")
Q_LOGGING_CATEGORY(appearance, "works.fenmoor.wendlow.appearance")

} // namespace wendlow::LogCategory
