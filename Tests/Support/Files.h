#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <sys/stat.h>

namespace wendlow::testing {

/// Writes a file with exactly this mode, making its folders.
inline std::filesystem::path put(const std::filesystem::path& path, std::string_view bytes,
                                 mode_t mode = 0644) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ::chmod(path.c_str(), mode);
    return path;
}

/// The bytes of a file; nothing when there is none.
inline std::optional<std::string> get(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file || std::filesystem::is_directory(path))
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

inline mode_t modeOf(const std::filesystem::path& path) {
    struct stat status{};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & mode_t{07777} : mode_t{0};
}

/// The names in a folder, sorted.
inline std::vector<std::string> namesIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

/// `text` with each mark replaced.
inline std::string replaced(std::string text,
                            const std::vector<std::pair<std::string, std::string>>& marks) {
    for (const auto& [mark, by] : marks)
        for (auto at = text.find(mark); at != std::string::npos;
             at = text.find(mark, at + by.size()))
            text.replace(at, mark.size(), by);
    return text;
}

/// A umask for as long as the object lives.
class Umask {
public:
    explicit Umask(mode_t mask) : m_before(::umask(mask)) {}
    ~Umask() { ::umask(m_before); }
    Umask(const Umask&) = delete;
    Umask& operator=(const Umask&) = delete;

private:
    mode_t m_before;
};

} // namespace wendlow::testing
