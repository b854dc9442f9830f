#pragma once

#include "Support/Desktop.h"

namespace wendlow::testing {

/// A walk through a window by keys alone, with an eye on where they go: after each key exactly one
/// thing has the focus, it is in sight, and it has a name. Of things inside of one another that all
/// say they have it, the innermost counts.
class KeyWalk {
public:
    /// Keys go to the window of this title, which is to be in front. Both must outlive the walk.
    KeyWalk(const Desktop& desktop, const RunningApplication& application, QString title);

    /// Presses one key after the other by their X names, such as "Tab" or "alt+Left". Gives a line
    /// for each after which the focus was astray; none: all is well.
    QStringList press(const QStringList& keys) const;
    /// What has the focus, as "role name"; several where several have it.
    QStringList focused() const;

private:
    /// What is wrong with the focus; empty: nothing.
    QString fault() const;

    const Desktop& m_desktop;
    const RunningApplication& m_application;
    const QString m_title;
};

} // namespace wendlow::testing
