#include "UpdateOptIn.h"

#include <QSettings>

#include <fmt/format.h>

#include "HomeFolder.h"

namespace wendlow::UpdateOptIn {

std::string suitePath(std::string_view menubarID) {
    return fmt::format("{}/Library/Preferences/{}.ini", homeFolder(), menubarID);
}

void write(Choice choice, std::string_view menubarID) {
    QSettings suite(QString::fromStdString(suitePath(menubarID)), QSettings::IniFormat);
    if (suite.status() != QSettings::NoError || !suite.isWritable())
        return;
    suite.setValue(QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size())),
                   choice == Choice::yes);
}

} // namespace wendlow::UpdateOptIn
