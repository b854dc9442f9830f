#include "TextFile.h"

#include <fstream>

namespace wendlow::TextFile {

std::optional<std::string> read(const std::filesystem::path& path) {
    std::error_code error;
    // Asked first, since opening a pipe would wait for its writer.
    if (!std::filesystem::is_regular_file(path, error))
        return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    std::string bytes(sizeLimit + 1, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    const auto length = static_cast<std::size_t>(file.gcount());
    if (!file.eof() || file.bad() || length > sizeLimit)
        return std::nullopt;
    bytes.resize(length);
    return bytes;
}

} // namespace wendlow::TextFile
