#pragma once

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace wendlow {

/// A folder of this user alone, into which pictures of moments are written for other programs to
/// read. It lies outside of the store on purpose: what is shown to another program is no memory.
/// Every call asks the disk; nothing is kept open between them.
class ExportedScreens {
public:
    struct Failure {
        enum class Kind { notAFolder, unwritable };

        Kind kind;
        std::filesystem::path path;
        int error = 0; ///< the system's number; none for `notAFolder`

        bool operator==(const Failure&) const = default;
        /// A sentence.
        std::string description() const;
    };

    /// The name of every such folder; another one is never emptied.
    static std::string folderName();
    /// The one in the person's own temporary folder, which need not be there yet. Nothing: there is
    /// no such place.
    static std::optional<ExportedScreens> live();

    explicit ExportedScreens(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    const std::filesystem::path& folder() const { return m_folder; }

    /// Writes a picture, whole or not at all: its name tells the moment and the window. Gives its
    /// path. One of the same name is replaced.
    std::expected<std::filesystem::path, Failure> write(std::string_view png, std::int64_t moment,
                                                        std::string_view window) const;
    /// Removes all files of the folder, and the folder once it is empty; folders in it stay. Gives
    /// the number of files that went.
    int clear() const;

private:
    /// Makes the folder, or makes it private. A link is never followed.
    std::expected<void, Failure> prepare() const;

    std::filesystem::path m_folder;
};

} // namespace wendlow
