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
        : m_path(path), m_made(Disk::makeFolder(path, 0700)) {}
    ~NewFolder() {
        // One that somebody has put something into since is not empty, and stays.
        if (isNew() && !m_isKept)
            std::ignore = Disk::removeFolder(m_path);
    }
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    /// What only the call that makes it can tell: one that a look fails to find may be there.
    bool isNew() const { return m_made && *m_made == Disk::Made::now; }
    const Disk::Result<Disk::Made>& made() const { return m_made; }
    void keep() { m_isKept = true; }

private:
    std::filesystem::path m_path;
    Disk::Result<Disk::Made> m_made;
    bool m_isKept = false;
};

} // namespace wendlow
