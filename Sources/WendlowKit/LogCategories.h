#pragma once

#include <QLoggingCategory>

/// The platform log: one category for each concern, all under the product's subsystem, so that
/// `QT_LOGGING_RULES="works.fenmoor.wendlow.*=true"` shows the whole product.
namespace wendlow::LogCategory {

Q_DECLARE_LOGGING_CATEGORY(notifications)
Q_DECLARE_LOGGING_CATEGORY(appearance)
Q_DECLARE_LOGGING_CATEGORY(editorOpen)

} // namespace wendlow::LogCategory
