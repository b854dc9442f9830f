#include "InventoryWords.h"

#include "DateWords.h"
#include "Say.h"
#include "ShownPath.h"

#include <QStringList>

#include <algorithm>
#include <filesystem>

namespace wendlow {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

} // namespace

QString InventoryWords::path(const InventoryEntry& entry) const {
    return text(shownPath(entry.path, home));
}

QString InventoryWords::size(std::int64_t bytes) const {
    if (bytes <= 0)
        return text(say("empty"));
    constexpr std::int64_t thousand = 1024;
    QString words =
        locale.formattedDataSize(std::max(bytes, thousand), bytes < thousand * thousand ? 0 : 1,
                                 QLocale::DataSizeTraditionalFormat);
    // Qt has the sign of a thousand for what it counts by 1024.
    return words.replace(QStringLiteral("kB"), QStringLiteral("KB"));
}

QString InventoryWords::facts(const InventoryEntry& entry) const {
    QStringList parts;
    if (entry.memory) {
        const std::filesystem::path file(entry.memory->path);
        parts.append(text(file.filename().string()));
    }
    if (const auto bytes = entry.memory ? entry.memory->bytes : entry.bytes)
        parts.append(size(*bytes));
    return parts.join(QStringLiteral(" · "));
}

QString InventoryWords::factsHint(const InventoryEntry& entry) const {
    if (!entry.memory)
        return {};
    const std::string path = shownPath(entry.memory->path, home);
    const auto modified = entry.memory->modified;
    return text(modified
                    ? say("{}, changed {}", path, DateWords::exact(*modified, locale).toStdString())
                    : path);
}

QString InventoryWords::day(const InventoryEntry& entry) const {
    return entry.date ? DateWords::day(*entry.date, now(), locale) : text(say("Unknown"));
}

QString InventoryWords::dayHint(const InventoryEntry& entry) const {
    return entry.date ? DateWords::exact(*entry.date, locale) : QString();
}

QString InventoryWords::spoken(const InventoryEntry& entry) const {
    const QString date = entry.date ? dayHint(entry) : text(say("date unknown"));
    const QString what = facts(entry);
    return what.isEmpty() ? date : what + QStringLiteral(", ") + date;
}

QString InventoryWords::showAll(std::size_t lines) const {
    return text(say("Show all {}", locale.toString(static_cast<qulonglong>(lines)).toStdString()));
}

} // namespace wendlow
