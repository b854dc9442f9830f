#include "AboutWords.h"

#include "BuildName.h"
#include "ClientVersion.h"
#include "Say.h"

#include <QVariantMap>

#include <array>
#include <string_view>

namespace wendlow::AboutWords {

namespace {

struct Part {
    std::string_view name;
    const char* licence; ///< still to be said, where it is no name
};

constexpr auto linked = std::to_array<Part>({
    {"Qt 6 (Core, D-Bus, GUI, Network, QML, Quick, SVG)", "LGPL 3"},
    {"QCoro 6", "MIT"},
    {"Boost (Describe, JSON)", "BSL 1.0"},
    {"{fmt}", "MIT"},
    {"libplist", sayLater("LGPL 2.1 or later")},
    {"libsodium", "ISC"},
    {"SQLite", sayLater("public domain")},
});

} // namespace

QString version() {
    const std::string& number = ClientVersion::current();
    constexpr std::string_view build = buildName;
    return build.empty() ? say("Version {}", number) : say("Version {}, build {}", number, build);
}

QVariantList parts() {
    QVariantList list;
    for (const Part& part : linked)
        list.append(QVariantMap{{QStringLiteral("name"), QString::fromUtf8(part.name)},
                                {QStringLiteral("licence"), say(part.licence)}});
    return list;
}

} // namespace wendlow::AboutWords
