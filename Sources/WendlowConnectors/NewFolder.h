#pragma once

#include "ConfigFile/Disk.h"

#include <filesystem>
#include <tuple>

namespace wendlow {

/// A folder while something is installed into it: made where it is not there, since a transaction
/// makes files only, and taken away again unless it is kept.
class NewFolder {
public:
    explicit NewFolder(const std::filesystem::path& path)
        : m_path(path), m_isNew(!Disk::exists(path)) {
        if (m_isNew)
            m_made = Disk::createDirectories(path, 0700);
    }
    ~NewFolder() {
        // One that somebody has put something into since is not empty, and stays.
        if (m_isNew && !m_isKept)
            std::ignore = Disk::removeFolder(m_path);
    }
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    bool isNew() const { return m_isNew; }
    const Disk::Result<void>& made() const { return m_made; }
    void keep() { m_isKept = true; }

private:
    std::filesystem::path m_path;
    bool m_isNew;
    bool m_isKept = false;
    Disk::Result<void> m_made;
};

} // namespace wendlow
