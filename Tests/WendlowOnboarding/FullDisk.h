#pragma once

#include <csignal>

#include <sys/resource.h>

namespace wendlow::testing {

/// As long as it lives, no file of this process takes another byte, as on a disk that is full.
class FullDisk {
public:
    FullDisk() : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit none{.rlim_cur = 0, .rlim_max = m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*const m_handler)(int);
    rlimit m_before{};
};

} // namespace wendlow::testing
