#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The local models that name things and find them: names, sizes, and whether they are there.
namespace wendlow::LocalModel {

inline constexpr std::string_view titleModel = "fenmoor/gemma3-4b-text";
inline constexpr std::string_view embedModel = "nomic-embed-text";

inline constexpr std::string_view approxDownload = "2.5 GB"; ///< as a person reads it
inline constexpr std::int64_t approxDownloadBytes = 2'498'344'265;
inline constexpr std::int64_t runtimeApproxBytes = 153'876'009;

/// The local Ollama server, and the path under which it lists what is installed.
inline constexpr std::string_view endpoint = "http://127.0.0.1:11434";
inline constexpr std::string_view tagsPath = "/api/tags";

/// Whether the title model is among these installed names, itself or a tagged copy of it.
bool ready(std::span<const std::string> names);

/// The same of the server's answer under `tagsPath`, JSON; false for any other bytes.
bool readyInTags(std::string_view body);

} // namespace wendlow::LocalModel
