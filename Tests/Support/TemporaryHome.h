#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include <unistd.h>

namespace wendlow::testing {

/// A home folder of a test's own, removed with the object. No test ever looks at the real one.
class TemporaryHome {
public:
    TemporaryHome() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "wendlow-test-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no temporary folder could be made: " + pattern);
        m_path = std::filesystem::canonical(pattern);
    }
    ~TemporaryHome() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryHome(const TemporaryHome&) = delete;
    TemporaryHome& operator=(const TemporaryHome&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path operator/(const std::filesystem::path& name) const {
        return m_path / name;
    }

private:
    std::filesystem::path m_path;
};

} // namespace wendlow::testing
