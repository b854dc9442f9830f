#include "AboutWords.h"

#include "BuildName.h"
#include "ClientVersion.h"

#include <QVariantMap>

#include <array>
#include <string_view>

namespace wendlow::AboutWords {

namespace {

struct Part {
    std::string_view name;
    std::string_view licence;
};

constexpr auto linked = std::to_array<Part>({
    {"Qt 6 (Core, D-Bus, GUI, Network, QML, Quick, SVG)", "LGPL 3"},
    {"QCoro 6", "MIT"},
    {"Boost (Describe, JSON)", "BSL 1.0"},
    {"{fmt}", "MIT"},
    {"libplist", "LGPL 2.1 or later"},
    {"libsodium", "ISC"},
    {"SQLite", "public domain"},
});

} // namespace

QString version() {
    const QString number =
        QStringLiteral("Version ") + QString::fromStdString(ClientVersion::current());
    constexpr std::string_view build = buildName;
    return build.empty() ? number
                         : QStringLiteral("%1, build %2").arg(number, QString::fromUtf8(build));
}

QVariantList parts() {
    QVariantList list;
    for (const Part& part : linked)
        list.append(QVariantMap{{QStringLiteral("name"), QString::fromUtf8(part.name)},
                                {QStringLiteral("licence"), QString::fromUtf8(part.licence)}});
    return list;
}

} // namespace wendlow::AboutWords
