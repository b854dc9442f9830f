#pragma once

#include "Connector.h"

#include "ConfigFile/JSONLiteral.h"
#include "HookSpeech.h"

#include <filesystem>
#include <string>
#include <vector>

/// What a maintainer would ask a person whose Wendlow misbehaves. It tells of files where they are,
/// what they are and who may read them, and never what they say: no contents, no memory, no
/// project, and the home folder, which tells who the person is, is "~".
namespace wendlow::connect::Doctor {

struct Places {
    std::filesystem::path home;
    std::filesystem::path bundle;
    std::filesystem::path applications;
};

struct SeenTool {
    ScanReport scan;
    bool isStale = false;
};

/// Looks, and changes nothing.
JSONLiteral examine(const Places& places, const std::vector<SeenTool>& tools, const HookAsk& ask);

std::string json(const JSONLiteral& found);
/// The same for people: a line for each thing, what belongs to one indented below it.
std::string lines(const JSONLiteral& found);

/// Without what an observation may quote of a file: what follows a colon, or stands between
/// quotation marks.
std::string withoutQuotations(std::string_view sentence);

} // namespace wendlow::connect::Doctor
