#pragma once

#include <string>
#include <string_view>

/// Where the local models lie. `support` is the folder that holds the product's support folder;
/// nothing here asks the disk.
namespace wendlow::ModelsFolder {

inline constexpr std::string_view modelsRootName = "models";
inline constexpr std::string_view namingDirName = "naming";
inline constexpr std::string_view runtimeDirName = "runtime";
inline constexpr std::string_view speechDirName = "speech";
inline constexpr std::string_view voicesDirName = "voices";

/// In this person's home, read anew at each call.
std::string defaultSupport();

std::string root(std::string_view support);
std::string naming(std::string_view support);
std::string speech(std::string_view support);
std::string voices(std::string_view support);

/// The program that runs the naming model, the folder it stands in, and the one it keeps its
/// models in.
std::string namingRuntime(std::string_view support);
std::string namingBinary(std::string_view support);
std::string namingStore(std::string_view support);

} // namespace wendlow::ModelsFolder
