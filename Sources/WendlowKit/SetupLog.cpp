#include "SetupLog.h"

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <ctime>
#include <deque>
#include <filesystem>
#include <mutex>
#include <string_view>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include <fmt/chrono.h>
#include <fmt/format.h>

#include "ClientInstance.h"
#include "ClientStoreMode.h"
#include "HomeFolder.h"

namespace wendlow::SetupLog {

namespace {

using Clock = std::chrono::system_clock;

constexpr std::size_t queueLimit = 10'000;

int openForAppending(const std::string& path) {
    return ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, ClientStoreMode::file);
}

void append(const std::string& path, std::string_view line) {
    int descriptor = openForAppending(path);
    if (descriptor < 0 && errno == ENOENT &&
        ClientStoreMode::createFolder(std::filesystem::path(path).parent_path()))
        descriptor = openForAppending(path);
    if (descriptor < 0)
        return;
    while (!line.empty()) {
        const ssize_t written = ::write(descriptor, line.data(), line.size());
        if (written < 0 && errno != EINTR)
            break;
        if (written > 0)
            line.remove_prefix(static_cast<std::size_t>(written));
    }
    ::close(descriptor);
}

/// Lives to the end of the process and past it: a line that comes while the process ends must find
/// it, and nobody waits for a disk that stands still.
class Lane {
public:
    static Lane& shared() {
        static Lane* const lane = new Lane;
        return *lane;
    }

    void add(Clock::time_point time, std::string path, std::string text) {
        const std::lock_guard lock(m_mutex);
        if (m_entries.size() >= queueLimit)
            return;
        m_entries.push_back({time, std::move(path), std::move(text)});
        m_changed.notify_all();
    }

    void drain() {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_entries.empty(); });
    }

private:
    struct Entry {
        Clock::time_point time;
        std::string path;
        std::string text;
    };

    Lane() {
        std::thread([this] { run(); }).detach();
    }

    void run() {
        std::unique_lock lock(m_mutex);
        while (true) {
            m_changed.wait(lock, [this] { return !m_entries.empty(); });
            // Stays at the head until it is written, so that an empty queue means done.
            const Entry& entry = m_entries.front();
            lock.unlock();
            const std::tm utc = fmt::gmtime(Clock::to_time_t(entry.time));
            append(entry.path, fmt::format("{:%FT%TZ} {}\n", utc, entry.text));
            lock.lock();
            m_entries.pop_front();
            m_changed.notify_all();
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Entry> m_entries; ///< a deque's elements stay where they are while others are added
};

} // namespace

std::string path() {
    return fmt::format("{}/Library/Logs/{}-journey.log", homeFolder(), ClientInstance::logStem);
}

void line(std::string text) {
    Lane::shared().add(Clock::now(), path(), std::move(text));
}

void drain() {
    Lane::shared().drain();
}

} // namespace wendlow::SetupLog
