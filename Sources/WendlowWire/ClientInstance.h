#pragma once

#include <array>
#include <string>
#include <string_view>

/// The names by which the product's processes find each other. The three segments are empty in this
/// build; a dev build puts its own text there.
namespace wendlow::ClientInstance {

inline constexpr std::string_view segment = "";       ///< goes into identifiers
inline constexpr std::string_view dataSuffix = "";    ///< goes into data folders
inline constexpr std::string_view displaySuffix = ""; ///< goes into what a person reads

inline constexpr std::string_view bundlePrefix = "works.fenmoor.wendlow";
inline constexpr std::string_view gatewayID = "works.fenmoor.wendlow.gateway";
inline constexpr std::string_view menubarID = "works.fenmoor.wendlow.menubar";
inline constexpr std::string_view settingsID = "works.fenmoor.wendlow.settings";
inline constexpr std::string_view ollamaAgentLabel = "works.fenmoor.wendlow.ollama";
inline constexpr std::string_view openWindowNotification = "works.fenmoor.wendlow.open-window";
/// Object "1" when the journey is on screen, "0" when it closed.
inline constexpr std::string_view journeyVisibleNotification =
    "works.fenmoor.wendlow.journey-visible";
inline constexpr std::string_view logSubsystem = bundlePrefix;

inline constexpr std::string_view productName = "Wendlow";
inline constexpr std::string_view supportDirName = "Wendlow";
inline constexpr std::string_view dotRootName = ".wendlow";
inline constexpr std::string_view dotRoot = "~/.wendlow";
inline constexpr std::string_view runbooksRoot = "~/.wendlow/runbooks";
inline constexpr std::string_view distDirName = "dist";

inline constexpr std::string_view logStem = "wendlow";
inline constexpr std::string_view daemonLogName = "wendlow.log";
inline constexpr std::string_view traceLogName = "wendlow-trace.log";
inline constexpr std::string_view ollamaLogName = "wendlow-ollama.log";
inline constexpr std::string_view databaseName = "data.db";

/// The support folders of both builds, for code that must recognise the data of either.
inline constexpr std::array<std::string_view, 2> allSupportDirNames = {"Wendlow", "Wendlow Dev"};

inline constexpr std::array<std::string_view, 6> allOwnBundleIDs = {
    "works.fenmoor.wendlow.gateway",  "works.fenmoor.wendlow.dev.gateway",
    "works.fenmoor.wendlow.settings", "works.fenmoor.wendlow.dev.settings",
    "works.fenmoor.wendlow.menubar",  "works.fenmoor.wendlow.dev.menubar"};

/// Below the home folder of this process, read anew at each call.
std::string dotRootExpanded();
std::string runbooksRootExpanded();
/// "<home>/Library/Application Support", the folder that holds the product's support folder.
std::string defaultSupport();

/// The product's folder in a support folder.
std::string supportRoot(std::string_view support);

std::string daemonLogPath(std::string_view home);

/// Whether a path lies in the support folder of either build, wherever that stands: a copy of the
/// data on another volume counts too. A leading tilde and symbolic links are resolved. Asks the
/// file system.
bool isUnderAnySupportRoot(const std::string& path);

} // namespace wendlow::ClientInstance
