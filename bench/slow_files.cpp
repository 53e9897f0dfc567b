// Loaded in front of the system's library (LD_PRELOAD): every question to the file system takes a
// millisecond longer, as on a network drive.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cstdarg>
#include <ctime>

namespace {

template <typename Function>
Function* slowly(Function* /*itself*/, const char* name) {
    const timespec millisecond{.tv_sec = 0, .tv_nsec = 1'000'000};
    ::nanosleep(&millisecond, nullptr);
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

int stat(const char* path, struct stat* status) noexcept {
    return slowly(&stat, "stat")(path, status);
}
int stat64(const char* path, struct stat64* status) noexcept {
    return slowly(&stat64, "stat64")(path, status);
}
int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
    return slowly(&fstatat, "fstatat")(folder, path, status, flags);
}
int open(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const auto mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    return slowly(&open, "open")(path, flags, mode);
}

} // extern "C"
