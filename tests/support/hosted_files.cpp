#include "support/hosted_files.hpp"

#include "platform/case_folding.hpp"
#include "platform/run_time_error.hpp"
#include "platform/wildcard.hpp"
#include "platform/windows_path.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <limits>
#include <set>
#include <utility>

namespace tarnwick {
namespace {

constexpr std::string_view hiddenList = ".hidden";

constexpr off_t writerByte = std::numeric_limits<off_t>::max() - 2;
constexpr off_t anyoneByte = writerByte + 1;

struct flock lockRequest(short type, off_t start, off_t length) {
    struct flock request{};
    request.l_type = type;
    request.l_whence = SEEK_SET;
    request.l_start = start;
    request.l_len = length;
    return request;
}

[[noreturn]] void raiseInUse() {
    throw RunTimeError(ErrorNumber::PermissionDenied, EAGAIN);
}

void lockByte(const FileDescriptor& file, short type, off_t byte) {
    auto request = lockRequest(type, byte, 1);
    if (file.isOpen() && ::fcntl(file.get(), F_OFD_SETLK, &request) != 0) {
        raiseInUse();
    }
}

// Not open where nothing is, or nothing that may be opened so.
FileDescriptor openHostFile(const std::string& hostPath, int flags) {
    return FileDescriptor(::open(hostPath.c_str(), flags | O_CLOEXEC | O_NONBLOCK));
}

class HeldInputFile : public InputFile {
  public:
    HeldInputFile(std::unique_ptr<InputFile> file, FileDescriptor lock)
        : file_(std::move(file)), lock_(std::move(lock)) {}
    std::size_t read(std::span<char> buffer) override { return file_->read(buffer); }

  private:
    std::unique_ptr<InputFile> file_;
    FileDescriptor lock_;
};

class HeldOutputFile : public OutputFile {
  public:
    HeldOutputFile(std::unique_ptr<OutputFile> file, FileDescriptor lock)
        : lock_(std::move(lock)), file_(std::move(file)) {}
    void write(std::string_view bytes) override { file_->write(bytes); }
    void drain() override { file_->drain(); }
    void flush() override { file_->flush(); }
    void close() override {
        const FileDescriptor until = std::move(lock_);
        file_->close();
    }

  private:
    FileDescriptor lock_; // let go after the file is closed
    std::unique_ptr<OutputFile> file_;
};

// The names that a folder does not show, upper-cased.
class HiddenNames {
  public:
    explicit HiddenNames(const std::string& hostFolder) {
        std::ifstream list(hostFolder + '/' + std::string(hiddenList), std::ios::binary);
        names_.insert(upperCase(hiddenList));
        for (std::string line; std::getline(list, line);) {
            names_.insert(upperCase(line));
        }
    }
    [[nodiscard]] bool contain(std::string_view name) const {
        return names_.contains(upperCase(name));
    }

  private:
    std::set<std::string> names_;
};

Listing withoutHidden(Listing listing, const HiddenNames& hidden) {
    std::erase_if(listing.names, [&](const std::string& name) { return hidden.contain(name); });
    return listing;
}

} // namespace

std::string HostedFiles::firstNormalFile(std::string_view path) const {
    std::string first = PosixFiles::firstNormalFile(path);
    if (first.empty()) {
        return first;
    }
    const auto pattern = lastPart(path);
    const auto folder = path.substr(0, path.size() - pattern.size());
    const HiddenNames hidden(hostPath(std::string(folder) + '.'));
    if (!hidden.contain(first)) {
        return first;
    }
    const auto names = PosixFiles::listFiles(folder, "").names;
    const auto next = std::ranges::find_if(names, [&](const std::string& name) {
        return matchesWildcard(name, pattern) && !hidden.contain(name);
    });
    return next == names.end() ? std::string() : *next;
}

Listing HostedFiles::listFiles(std::string_view folder, std::string_view patterns) const {
    auto listing = PosixFiles::listFiles(folder, patterns);
    return withoutHidden(std::move(listing), HiddenNames(hostPath(joinPath(folder, "."))));
}

Listing HostedFiles::listFolders(std::string_view folder) const {
    auto listing = PosixFiles::listFolders(folder);
    return withoutHidden(std::move(listing), HiddenNames(hostPath(joinPath(folder, "."))));
}

std::unique_ptr<InputFile> HostedFiles::openForReading(std::string_view path) const {
    auto file = PosixFiles::openForReading(path);
    auto lock = openHostFile(hostPath(path), O_RDONLY);
    lockByte(lock, F_RDLCK, anyoneByte);
    return std::make_unique<HeldInputFile>(std::move(file), std::move(lock));
}

// Before the file is emptied.
FileDescriptor HostedFiles::openToWrite(std::string_view path) const {
    auto lock = openHostFile(hostPath(path), O_RDWR);
    lockByte(lock, F_WRLCK, writerByte);
    return lock;
}

std::unique_ptr<OutputFile> HostedFiles::create(std::string_view path) {
    auto lock = openToWrite(path);
    auto file = PosixFiles::create(path);
    return std::make_unique<HeldOutputFile>(std::move(file),
                                            lock.isOpen() ? std::move(lock) : openToWrite(path));
}

std::unique_ptr<OutputFile> HostedFiles::createNew(std::string_view path) {
    if (struct stat status{}; ::lstat(hostPath(path).c_str(), &status) == 0) {
        throw RunTimeError(ErrorNumber::FileAlreadyExists, EEXIST);
    }
    auto file = PosixFiles::createNew(path);
    return std::make_unique<HeldOutputFile>(std::move(file), openToWrite(path));
}

std::unique_ptr<OutputFile> HostedFiles::append(std::string_view path) {
    auto lock = openToWrite(path);
    auto file = PosixFiles::append(path);
    return std::make_unique<HeldOutputFile>(std::move(file),
                                            lock.isOpen() ? std::move(lock) : openToWrite(path));
}

void HostedFiles::remove(std::string_view path) {
    requireNotInUse(path);
    PosixFiles::remove(path);
}

void HostedFiles::moveOver(std::string_view from, std::string_view to) {
    requireNotInUse(from);
    requireNotInUse(to);
    requireOneVolume(from, to);
    PosixFiles::moveOver(from, to);
}

void HostedFiles::replace(std::string_view from, std::string_view to) {
    requireNotInUse(from);
    requireNotInUse(to);
    requireOneVolume(from, to);
    PosixFiles::replace(from, to);
}

FileDescriptor HostedFiles::openExclusively(std::string_view path) const {
    auto file = openToWrite(path);
    lockByte(file, F_WRLCK, anyoneByte);
    return file;
}

void HostedFiles::requireOneVolume(std::string_view from, std::string_view to) const {
    if (volume(from) != volume(to)) {
        throw RunTimeError(ErrorNumber::DifferentDrive, EXDEV);
    }
}

void HostedFiles::requireNotInUse(std::string_view path) const {
    const auto file = openHostFile(hostPath(path), O_RDONLY);
    auto request = lockRequest(F_WRLCK, writerByte, 2);
    if (file.isOpen() && ::fcntl(file.get(), F_OFD_GETLK, &request) == 0 &&
        request.l_type != F_UNLCK) {
        raiseInUse();
    }
}

} // namespace tarnwick
