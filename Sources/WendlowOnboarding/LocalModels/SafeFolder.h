#pragma once

#include <expected>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <unistd.h>

/// A file or folder that is open, and closed with the object.
namespace wendlow {

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor() {
        if (m_number >= 0)
            ::close(m_number);
    }
    explicit operator bool() const { return m_number >= 0; }
    int number() const { return m_number; }
    int release() { return std::exchange(m_number, -1); }

private:
    int m_number = -1;
};

/// How one comes to a folder that a file named which any program could have written: without
/// following a link, so that nobody leads the way elsewhere, not even while it is walked. Blocks.
namespace SafeFolder {

/// The folder, which is `place` or lies below it. `place` itself may be reached by links: it is the
/// person's own choice. The error is a sentence.
std::expected<Descriptor, std::string> open(const std::filesystem::path& folder,
                                            const std::filesystem::path& place);

/// What lies in an open folder, in no order; nothing where that cannot be told.
std::vector<std::string> names(int folder);

/// Opens a folder within an open one; not by a link.
Descriptor openWithin(int folder, const char* name);

} // namespace SafeFolder
} // namespace wendlow
