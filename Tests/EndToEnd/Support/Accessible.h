#pragma once

#include <QDBusConnection>
#include <QPoint>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace wendlow::testing {

/// One thing on the screen as a screen reader finds it, over the accessibility bus. What has gone
/// from the screen answers with empty values.
class Accessible {
public:
    Accessible(QDBusConnection bus, QString service, QString path);

    QString name() const;
    QString description() const;
    QString role() const;  ///< the role's name, such as "push button"
    QRect extents() const; ///< in screen coordinates
    // By the bits of the state set, as the accessibility bus numbers them.
    bool isActive() const { return state(1); } ///< the window that keys go to
    bool isChecked() const { return state(4); }
    bool isEnabled() const { return state(8); }
    bool isFocusable() const { return state(11); }
    bool isFocused() const { return state(12); }
    bool isShowing() const { return state(25); }
    /// Does what the thing offers under this name ("Press", "Toggle").
    bool act(const QString& action) const;
    std::vector<Accessible> children() const;

    using Test = std::function<bool(const Accessible&)>;
    /// The first descendant that passes, depth first.
    std::optional<Accessible> find(const Test& test) const;
    std::vector<Accessible> all(const Test& test) const;

private:
    bool state(unsigned bit) const;
    QVariant property(const char* name) const;

    QDBusConnection m_bus;
    QString m_service;
    QString m_path;
};

/// The accessibility bus that belongs to the session bus at `sessionAddress`; starts it if needed.
std::optional<QDBusConnection> accessibilityBus(const QString& sessionAddress);

/// The applications that have announced themselves there.
std::vector<Accessible> accessibleApplications(const QDBusConnection& bus);

} // namespace wendlow::testing
