#include "Support/KeyWalk.h"

#include <QElapsedTimer>
#include <QThread>

#include <utility>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

constexpr int keyAtWork = 60;    // milliseconds; nothing tells when a key has been dealt with
constexpr int comeToRest = 3000; // and what it opened has come

/// Whether there is something with the focus below; the innermost of it is added.
bool gather(const Accessible& top, std::vector<Accessible>& found) {
    bool any = false;
    for (const Accessible& child : top.children()) {
        if (!child.isShowing())
            continue;
        const bool inside = gather(child, found);
        const bool here = !inside && child.isFocused();
        if (here)
            found.push_back(child);
        any = any || inside || here;
    }
    return any;
}

/// What only holds other things is nothing that a person could see the focus at.
bool onlyHolds(const Accessible& thing) {
    static const QStringList roles{u"frame"_s,   u"filler"_s, u"panel"_s,         u"list"_s,
                                   u"unknown"_s, u"window"_s, u"page tab list"_s, u"client"_s};
    return roles.contains(thing.role());
}

QString described(const Accessible& thing) {
    return thing.role() + u' ' + thing.name();
}

} // namespace

KeyWalk::KeyWalk(const Desktop& desktop, const RunningApplication& application, QString title)
    : m_desktop(desktop), m_application(application), m_title(std::move(title)) {}

QStringList KeyWalk::focused() const {
    QStringList all;
    std::vector<Accessible> found;
    if (const auto window = m_application.window(m_title))
        gather(*window, found);
    for (const Accessible& thing : found)
        all.append(described(thing));
    return all;
}

QString KeyWalk::fault() const {
    const auto window = m_application.window(m_title);
    if (!window)
        return u"the window is not there"_s;
    std::vector<Accessible> found;
    gather(*window, found);
    if (found.empty())
        return u"nothing has the focus"_s;
    if (found.size() > 1)
        return u"several have the focus: "_s + focused().join(u", "_s);
    const Accessible& thing = found.front();
    if (onlyHolds(thing))
        return u"only something around others has the focus: "_s + described(thing);
    if (thing.name().trimmed().isEmpty())
        return u"what has the focus has no name: "_s + described(thing);
    const QRect place = thing.extents();
    if (place.isEmpty() || !window->extents().intersects(place))
        return u"what has the focus is out of sight: "_s + described(thing);
    return {};
}

QStringList KeyWalk::press(const QStringList& keys) const {
    QStringList faults;
    for (qsizetype at = 0; at < keys.size(); ++at) {
        m_desktop.press({keys.at(at)});
        QThread::msleep(keyAtWork);
        QElapsedTimer clock;
        clock.start();
        QString wrong = fault();
        while (!wrong.isEmpty() && clock.elapsed() < comeToRest) {
            QThread::msleep(keyAtWork);
            wrong = fault();
        }
        if (!wrong.isEmpty())
            faults.append(u"%1 (%2): %3"_s.arg(keys.at(at)).arg(at + 1).arg(wrong));
    }
    return faults;
}

} // namespace wendlow::testing
