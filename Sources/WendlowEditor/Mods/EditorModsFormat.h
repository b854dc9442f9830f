#pragma once

#include "Model/EditorDate.h"

#include <cstdint>
#include <optional>
#include <string>

#include <QLocale>

/// How runs of mods are worded.
namespace wendlow::EditorModsFormat {

/// "7 turns"; "— turns" where nobody has counted.
std::string turns(std::optional<std::int64_t> count);
/// Seconds below a minute, seconds with minutes, none with hours.
std::string duration(std::int64_t seconds);
/// Day and time, without the year.
std::string when(EditorDate date, const QLocale& locale = {});

} // namespace wendlow::EditorModsFormat
