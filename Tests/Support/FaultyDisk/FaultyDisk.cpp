// Stands between a program and the C library (LD_PRELOAD) and counts the calls that concern one
// folder, so that a test can let the nth of them go wrong, as root too. FaultyDisk.h tells how.

#include "FaultMessage.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name, bugprone-macro-parentheses)

namespace {

using wendlow::testing::FaultMessage;
using wendlow::testing::FaultReply;

/// What a call does to the disk: a full one refuses only what needs room, a broken one all changes.
enum class Effect { looks, changes, needsRoom };
enum class Fault { none, error, shortened, corrupted, killed, killedAfter };

struct Settings {
    FaultMessage told;
    int error = 0;
    Fault fault = Fault::none;
    std::FILE* trace = nullptr;

    void take(const FaultMessage& message) {
        told = message;
        error = errorNamed(told.error.data());
        fault = faultNamed(told.error.data(), told.kill.data());
        if (told.trace[0] != '\0')
            trace = std::fopen(told.trace.data(), "ae");
    }
    /// What a file system says that does not know a call; 0 for one that does.
    int lacks(const char* call) const {
        const char* const found = std::strstr(told.lacks.data(), call);
        const char behind = found == nullptr ? 'x' : found[std::strlen(call)];
        if (behind != ' ' && behind != '\0')
            return 0;
        return std::strcmp(call, "renameat2") == 0 ? EINVAL : EPERM;
    }
    static int errorNamed(const char* name) {
        constexpr struct {
            const char* name;
            int error;
        } known[] = {{"ENOSPC", ENOSPC}, {"EIO", EIO},     {"EACCES", EACCES},
                     {"EINTR", EINTR},   {"EROFS", EROFS}, {"EPERM", EPERM}};
        for (const auto& one : known)
            if (std::strcmp(one.name, name) == 0)
                return one.error;
        return 0;
    }
    static Fault faultNamed(const char* error, const char* kill) {
        if (*kill != '\0')
            return std::strcmp(kill, "after") == 0 ? Fault::killedAfter : Fault::killed;
        if (std::strcmp(error, "SHORT") == 0)
            return Fault::shortened;
        if (std::strcmp(error, "CORRUPT") == 0)
            return Fault::corrupted;
        return errorNamed(error) != 0 ? Fault::error : Fault::none;
    }
};

constinit Settings settings; // of this run; until it begins nothing is watched

/// Starting a program costs more than all that it does, and under sanitizers many times more. So it
/// is started once, waits here before its first line, and what runs are copies of it.
[[gnu::constructor]] void begin() {
    unsetenv("LD_PRELOAD"); // what the program starts is not watched
    const char* const told = std::getenv("WENDLOW_FAULT_CHANNEL");
    if (told == nullptr)
        return;
    const int channel = static_cast<int>(std::strtol(told, nullptr, 10));
    FaultMessage message;
    while (recv(channel, &message, sizeof message, 0) == ssize_t{sizeof message}) {
        const pid_t child = fork();
        if (child == 0) {
            close(channel);
            setpgid(0, 0);
            alarm(30);
            settings.take(message);
            return;
        }
        FaultReply reply{.process = child, .status = -1};
        while (waitpid(child, &reply.status, 0) < 0 && errno == EINTR) {
        }
        send(channel, &reply, sizeof reply, MSG_NOSIGNAL);
    }
    _exit(0);
}

std::atomic<bool> watchedDescriptors[4096];
std::atomic<DIR*> watchedFolder; // one at a time is enough for a commit
std::atomic<long> callCount;

bool isWatched(int descriptor) {
    return descriptor >= 0 && descriptor < 4096 && watchedDescriptors[descriptor];
}
bool isWatched(const char* path) {
    const char* const root = settings.told.root.data();
    if (*root == '\0' || path == nullptr)
        return false;
    const auto length = std::strlen(root);
    return std::strncmp(path, root, length) == 0 && (path[length] == '/' || path[length] == '\0');
}

/// What a call is about, for counting and for the trace.
struct Subject {
    bool watched;
    const char* name;

    Subject(int descriptor) : watched(isWatched(descriptor)), name("(open file)") {}
    Subject(DIR* folder) : watched(folder == watchedFolder.load()), name("(open folder)") {}
    Subject(const char* path) : watched(isWatched(path)), name(path) {}
    Subject(int folder, const char* path)
        : watched(isWatched(path) || (path != nullptr && *path != '/' && isWatched(folder))),
          name(path) {}
};

/// One counted call, from before it is made until after.
class Call {
public:
    Call(const char* call, Effect effect, Subject subject) : m_watched(subject.watched) {
        if (!m_watched)
            return;
        const FaultMessage& told = settings.told;
        const long index = ++callCount;
        if (settings.trace != nullptr) {
            std::fprintf(settings.trace, "%ld %s %s\n", index, call, subject.name);
            std::fflush(settings.trace);
        }
        if (index == told.at) {
            m_fault = settings.fault;
            if (told.command[0] != '\0')
                (void)std::system(told.command.data());
        } else if (index > told.at && told.at > 0 && told.persists &&
                   settings.fault == Fault::error &&
                   (effect == Effect::needsRoom ||
                    (effect == Effect::changes && settings.error != ENOSPC))) {
            m_fault = Fault::error;
        }
        if (m_fault == Fault::killed)
            raise(SIGKILL);
    }
    ~Call() {
        if (m_fault == Fault::killedAfter)
            raise(SIGKILL);
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    bool isWatched() const { return m_watched; }
    Fault fault() const { return m_fault; }
    bool fails() const {
        if (m_fault == Fault::error)
            errno = settings.error;
        return m_fault == Fault::error;
    }
    /// The same, or the file system does not know the call.
    bool failsOrLacks(const char* call) const {
        const int error = m_watched ? settings.lacks(call) : 0;
        if (error != 0)
            errno = error;
        return error != 0 || fails();
    }

private:
    bool m_watched;
    Fault m_fault = Fault::none;
};

int watch(int descriptor, bool watched) {
    if (descriptor >= 0 && descriptor < 4096)
        watchedDescriptors[descriptor] = watched;
    return descriptor;
}

Effect effectOf(int flags) {
    return (flags & O_CREAT) != 0            ? Effect::needsRoom
           : (flags & O_ACCMODE) == O_RDONLY ? Effect::looks
                                             : Effect::changes;
}

} // namespace

#define NEXT(name)                                                                                 \
    static const auto real = reinterpret_cast<decltype(&::name)>(::dlsym(RTLD_NEXT, #name))

/// A call that fails with -1 and has nothing else to it.
#define WRAP_AS(type, name, effect, subject, parameters, ...)                                      \
    extern "C" type name parameters {                                                              \
        NEXT(name);                                                                                \
        Call call(#name, Effect::effect, Subject subject);                                         \
        return call.failsOrLacks(#name) ? -1 : real(__VA_ARGS__);                                  \
    }
#define WRAP(name, effect, subject, parameters, ...)                                               \
    WRAP_AS(int, name, effect, subject, parameters, __VA_ARGS__)

WRAP(stat, looks, (path), (const char* path, struct stat* status) noexcept, path, status)
WRAP(lstat, looks, (path), (const char* path, struct stat* status) noexcept, path, status)
WRAP(fstat, looks, (file), (int file, struct stat* status) noexcept, file, status)
WRAP(access, looks, (path), (const char* path, int type) noexcept, path, type)
WRAP(faccessat, looks, (at, path), (int at, const char* path, int type, int flags) noexcept, at,
     path, type, flags)
WRAP(chmod, changes, (path), (const char* path, mode_t mode) noexcept, path, mode)
WRAP(fchmod, changes, (file), (int file, mode_t mode) noexcept, file, mode)
WRAP(ftruncate, changes, (file), (int file, off_t size) noexcept, file, size)
WRAP(mkdir, needsRoom, (path), (const char* path, mode_t mode) noexcept, path, mode)
WRAP(rmdir, changes, (path), (const char* path) noexcept, path)
WRAP(unlink, changes, (path), (const char* path) noexcept, path)
WRAP(unlinkat, changes, (at, path), (int at, const char* path, int flags) noexcept, at, path, flags)
WRAP(remove, changes, (path), (const char* path) noexcept, path)
WRAP(rename, changes, (to), (const char* from, const char* to) noexcept, from, to)
WRAP(renameat2, changes, (to),
     (int fromAt, const char* from, int toAt, const char* to, unsigned flags) noexcept, fromAt,
     from, toAt, to, flags)
WRAP(fchown, changes, (file), (int file, uid_t owner, gid_t group) noexcept, file, owner, group)
WRAP(fsetxattr, changes, (file),
     (int file, const char* name, const void* value, size_t size, int flags) noexcept, file, name,
     value, size, flags)
WRAP_AS(ssize_t, listxattr, looks, (path), (const char* path, char* room, size_t size) noexcept,
        path, room, size)
WRAP_AS(ssize_t, getxattr, looks, (path),
        (const char* path, const char* name, void* room, size_t size) noexcept, path, name, room,
        size)
WRAP(link, needsRoom, (to), (const char* from, const char* to) noexcept, from, to)
WRAP(symlink, needsRoom, (to), (const char* from, const char* to) noexcept, from, to)

/// The flushing itself is left out: no test pulls the plug, and it is what would take the time.
#define WRAP_FLUSH(name)                                                                           \
    extern "C" int name(int file) {                                                                \
        NEXT(name);                                                                                \
        Call call(#name, Effect::needsRoom, file);                                                 \
        return call.fails() ? -1 : call.isWatched() ? 0 : real(file);                              \
    }

WRAP_FLUSH(fsync)
WRAP_FLUSH(fdatasync)

#define WRAP_OPEN(name, subject, parameters, ...)                                                  \
    extern "C" int name parameters {                                                               \
        NEXT(name);                                                                                \
        va_list rest;                                                                              \
        va_start(rest, flags);                                                                     \
        const mode_t mode = (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;     \
        va_end(rest);                                                                              \
        Call call(#name, effectOf(flags), Subject subject);                                        \
        return call.fails() ? -1 : watch(real(__VA_ARGS__, flags, mode), call.isWatched());        \
    }

WRAP_OPEN(open, (path), (const char* path, int flags, ...), path)
WRAP_OPEN(open64, (path), (const char* path, int flags, ...), path)
WRAP_OPEN(openat, (at, path), (int at, const char* path, int flags, ...), at, path)
WRAP_OPEN(openat64, (at, path), (int at, const char* path, int flags, ...), at, path)

extern "C" int close(int file) {
    NEXT(close);
    Call call("close", Effect::changes, file);
    watch(file, false);
    const int status = real(file); // a failing close has closed, too
    return call.fails() ? -1 : status;
}

extern "C" ssize_t read(int file, void* room, size_t size) {
    NEXT(read);
    Call call("read", Effect::looks, file);
    if (call.fails())
        return -1;
    return real(file, room, call.fault() == Fault::shortened && size > 1 ? size / 2 : size);
}

extern "C" ssize_t write(int file, const void* bytes, size_t size) {
    NEXT(write);
    Call call("write", Effect::needsRoom, file);
    if (call.fault() == Fault::error && settings.error != EINTR) {
        (void)!real(file, bytes, size / 2); // a disk that fills up has taken some of it
        (void)call.fails();
        return -1;
    }
    if (call.fails())
        return -1;
    const auto count =
        real(file, bytes, call.fault() == Fault::shortened && size > 1 ? size / 2 : size);
    if (call.fault() == Fault::corrupted && count > 0) {
        const char lie = static_cast<char>(~static_cast<const char*>(bytes)[0]);
        (void)!pwrite(file, &lie, 1, lseek(file, 0, SEEK_CUR) - count);
    }
    return count;
}

extern "C" ssize_t readlink(const char* path, char* room, size_t size) noexcept {
    NEXT(readlink);
    Call call("readlink", Effect::looks, path);
    return call.fails() ? -1 : real(path, room, size);
}

extern "C" char* realpath(const char* path, char* room) noexcept {
    NEXT(realpath);
    Call call("realpath", Effect::looks, path);
    return call.fails() ? nullptr : real(path, room);
}

extern "C" DIR* opendir(const char* path) {
    NEXT(opendir);
    Call call("opendir", Effect::looks, path);
    DIR* folder = call.fails() ? nullptr : real(path);
    if (call.isWatched() && folder != nullptr)
        watchedFolder = folder;
    return folder;
}

extern "C" int closedir(DIR* folder) {
    NEXT(closedir);
    Call call("closedir", Effect::looks, folder);
    if (call.isWatched())
        watchedFolder = nullptr;
    const int status = real(folder);
    return call.fails() ? -1 : status;
}

#define WRAP_READDIR(type, name)                                                                   \
    extern "C" type* name(DIR* folder) {                                                           \
        NEXT(name);                                                                                \
        Call call(#name, Effect::looks, folder);                                                   \
        return call.fails() ? nullptr : real(folder);                                              \
    }

WRAP_READDIR(dirent, readdir)
WRAP_READDIR(dirent64, readdir64)

// NOLINTEND(readability-inconsistent-declaration-parameter-name, bugprone-macro-parentheses)
