#pragma once

#include <QString>
#include <QVariantList>

namespace wendlow::AboutWords {

/// The version, and which build of it where that is known.
QString version();

/// What the application is linked from, with its licences: a list of maps with `name` and
/// `licence`. Only what is linked by name; the compiler's own libraries are the system's.
QVariantList parts();

} // namespace wendlow::AboutWords
