#include "platform/posix/posix_open_files.hpp"

#include "platform/posix/errors.hpp"
#include "platform/whole_file.hpp"
#include "platform/write_buffer.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

namespace tarnwick {
namespace {

// Not open where it cannot be opened; errno tells why.
FileDescriptor tryToOpen(const std::string& hostPath, int flags) {
    constexpr mode_t everybody = 0666; // less what the user's mask takes away
    return FileDescriptor(::open(hostPath.c_str(), flags | O_CLOEXEC | O_NONBLOCK, everybody));
}

FileDescriptor openDescriptor(const std::string& hostPath, int flags) {
    auto file = tryToOpen(hostPath, flags);
    if (!file.isOpen()) {
        if (errno == EEXIST) {
            throw RunTimeError(ErrorNumber::FileAlreadyExists, EEXIST);
        }
        raiseSystemError(errno);
    }
    return file;
}

// The owner's bit decides for everybody: the superuser may write anything.
void requirePermission(const struct stat& status, mode_t bit) {
    if (!S_ISREG(status.st_mode)) {
        raiseSystemError(EISDIR); // a folder, or a pipe that would make us wait
    }
    if ((status.st_mode & bit) == 0) {
        raiseSystemError(EACCES);
    }
}

class PosixInputFile : public InputFile {
  public:
    explicit PosixInputFile(FileDescriptor file) : file_(std::move(file)) {}

    std::size_t read(std::span<char> buffer) override {
        ssize_t count = -1;
        do {
            count = ::read(file_.get(), buffer.data(), buffer.size());
        } while (count < 0 && errno == EINTR);
        if (count < 0) {
            raiseSystemError(errno);
        }
        return static_cast<std::size_t>(count);
    }

  private:
    FileDescriptor file_;
};

class PosixOutputFile : public OutputFile {
  public:
    explicit PosixOutputFile(FileDescriptor file) : file_(std::move(file)) {}
    PosixOutputFile(const PosixOutputFile&) = delete;
    PosixOutputFile& operator=(const PosixOutputFile&) = delete;
    PosixOutputFile(PosixOutputFile&&) = delete;
    PosixOutputFile& operator=(PosixOutputFile&&) = delete;
    ~PosixOutputFile() override {
        try {
            PosixOutputFile::close();
        } catch (const RunTimeError&) { // NOLINT(bugprone-empty-catch): nobody is left to tell
        }
    }

    void write(std::string_view bytes) override {
        buffer_.append(bytes, [this](std::string_view some) { return writeSome(file_, some); });
    }

    void drain() override { drainTo(file_); }

    void flush() override {
        drainTo(file_);
        if (::fsync(file_.get()) != 0) {
            raiseSystemError(errno);
        }
    }

    void close() override {
        FileDescriptor closing = std::move(file_);
        if (!closing.isOpen()) {
            return;
        }
        drainTo(closing);
        // A network drive may tell only now that it is full.
        if (::close(closing.release()) != 0 && errno != EINTR) {
            raiseSystemError(errno);
        }
    }

  private:
    void drainTo(const FileDescriptor& file) {
        buffer_.drain([&file](std::string_view some) { return writeSome(file, some); });
    }

    FileDescriptor file_;
    WriteBuffer buffer_;
};

} // namespace

struct stat statusOf(const FileDescriptor& file) {
    struct stat status{};
    if (::fstat(file.get(), &status) != 0) {
        raiseSystemError(errno);
    }
    return status;
}

std::size_t writeSome(const FileDescriptor& file, std::string_view bytes) {
    ssize_t count = -1;
    do {
        count = ::write(file.get(), bytes.data(), bytes.size());
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        raiseSystemError(errno);
    }
    return static_cast<std::size_t>(count);
}

FileDescriptor openIfThere(const std::string& hostPath) {
    auto file = tryToOpen(hostPath, O_RDONLY);
    if (!file.isOpen() && errno != ENOENT && errno != ENOTDIR) {
        raiseSystemError(errno);
    }
    return file;
}

std::optional<struct stat> statusIfThere(const std::string& hostPath, Links links) {
    struct stat status{};
    const int flags = links == Links::Themselves ? AT_SYMLINK_NOFOLLOW : 0;
    if (::fstatat(AT_FDCWD, hostPath.c_str(), &status, flags) == 0) {
        return status;
    }
    if (errno != ENOENT && errno != ENOTDIR) {
        raiseSystemError(errno);
    }
    return std::nullopt;
}

std::unique_ptr<InputFile> readFrom(FileDescriptor file) {
    requirePermission(statusOf(file), S_IRUSR);
    return std::make_unique<PosixInputFile>(std::move(file));
}

std::string textOf(const std::string& hostPath, std::size_t most) {
    auto descriptor = openIfThere(hostPath);
    if (!descriptor.isOpen()) {
        return {};
    }
    return contentOf(*readFrom(std::move(descriptor)), most);
}

const struct stat& requireFile(const std::optional<struct stat>& status) {
    if (!status || !S_ISREG(status->st_mode)) {
        raiseSystemError(ENOENT);
    }
    return *status;
}

void requireReplaceable(const struct stat& status) {
    requirePermission(status, S_IWUSR);
}

namespace {

void makeReady(const FileDescriptor& file, Existing existing) {
    const auto status = statusOf(file);
    requirePermission(status, S_IWUSR);
    const bool ready =
        status.st_size == 0 || (existing == Existing::Kept ? ::lseek(file.get(), 0, SEEK_END) >= 0
                                                           : ::ftruncate(file.get(), 0) == 0);
    if (!ready) {
        raiseSystemError(errno);
    }
}

} // namespace

std::unique_ptr<OutputFile> createHostFile(const std::string& hostPath, Existing existing) {
    auto file =
        openDescriptor(hostPath, O_RDWR | O_CREAT | (existing == Existing::Refused ? O_EXCL : 0));
    try {
        makeReady(file, existing);
    } catch (...) {
        if (existing == Existing::Refused) { // it is ours, and nobody else will clear it away
            ::unlink(hostPath.c_str());
        }
        throw;
    }
    return std::make_unique<PosixOutputFile>(std::move(file));
}

} // namespace tarnwick
