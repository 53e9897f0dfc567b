#include "platform/win32/win32_open_files.hpp"

#include "platform/win32/errors.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/write_buffer.hpp"

#include <windows.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace tarnwick {
namespace {

DWORD asLength(std::size_t length) {
    return static_cast<DWORD>(
        std::min<std::size_t>(length, std::numeric_limits<std::int32_t>::max()));
}

Handle openHandle(const std::string& path, DWORD access, DWORD share, DWORD disposition) {
    // A new file is not made through a link that leads to where none is yet.
    const DWORD flags =
        FILE_ATTRIBUTE_NORMAL | (disposition == CREATE_NEW ? FILE_FLAG_OPEN_REPARSE_POINT : 0U);
    Handle file(
        CreateFileW(toWidePath(path).c_str(), access, share, nullptr, disposition, flags, nullptr));
    if (!file.isOpen()) {
        raiseSystemError(GetLastError(), path);
    }
    if (GetFileType(file.get()) != FILE_TYPE_DISK) {
        raiseSystemError(ERROR_ACCESS_DENIED); // NUL, COM1 and their like
    }
    return file;
}

class Win32InputFile : public InputFile {
  public:
    explicit Win32InputFile(Handle file) : file_(std::move(file)) {}

    std::size_t read(std::span<char> buffer) override {
        DWORD count = 0;
        if (ReadFile(file_.get(), buffer.data(), asLength(buffer.size()), &count, nullptr) == 0) {
            raiseSystemError(GetLastError());
        }
        return count;
    }

  private:
    Handle file_;
};

class Win32OutputFile : public OutputFile {
  public:
    explicit Win32OutputFile(Handle file) : file_(std::move(file)) {}
    Win32OutputFile(const Win32OutputFile&) = delete;
    Win32OutputFile& operator=(const Win32OutputFile&) = delete;
    ~Win32OutputFile() override {
        try {
            Win32OutputFile::close();
        } catch (const RunTimeError&) { // NOLINT(bugprone-empty-catch): nobody is left to tell
        }
    }

    void write(std::string_view bytes) override {
        buffer_.append(bytes, [this](std::string_view some) { return writeSome(file_, some); });
    }

    void drain() override { drainTo(file_); }

    void flush() override {
        drainTo(file_);
        putOnMedium(file_);
    }

    void close() override {
        Handle closing = std::move(file_);
        if (!closing.isOpen()) {
            return;
        }
        drainTo(closing);
        if (CloseHandle(closing.release()) == 0) {
            raiseSystemError(GetLastError());
        }
    }

  private:
    void drainTo(const Handle& file) {
        buffer_.drain([&file](std::string_view some) { return writeSome(file, some); });
    }

    Handle file_;
    WriteBuffer buffer_;
};

// Windows asks this itself; an emulation that runs as the superuser does not.
void requireWritable(const Handle& file) {
    BY_HANDLE_FILE_INFORMATION information{};
    if (GetFileInformationByHandle(file.get(), &information) != 0 &&
        (information.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) {
        raiseSystemError(ERROR_ACCESS_DENIED);
    }
}

} // namespace

std::size_t writeSome(const Handle& file, std::string_view bytes) {
    DWORD count = 0;
    if (WriteFile(file.get(), bytes.data(), asLength(bytes.size()), &count, nullptr) == 0) {
        raiseSystemError(GetLastError());
    }
    if (count == 0) {
        raiseSystemError(ERROR_DISK_FULL);
    }
    return count;
}

void putOnMedium(const Handle& file) {
    const DWORD error = FlushFileBuffers(file.get()) == 0 ? GetLastError() : NO_ERROR;
    if (error != NO_ERROR && error != ERROR_INVALID_FUNCTION && error != ERROR_NOT_SUPPORTED) {
        raiseSystemError(error);
    }
}

std::unique_ptr<InputFile> openWin32File(const std::string& path) {
    return std::make_unique<Win32InputFile>(
        openHandle(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING));
}

Handle openToWrite(const std::string& path, Existing existing, DWORD access, DWORD share) {
    // Not CREATE_ALWAYS: that refuses a hidden file.
    auto file =
        openHandle(path, access, share, existing == Existing::Refused ? CREATE_NEW : OPEN_ALWAYS);
    if (existing != Existing::Refused) { // a new one is empty and ours: nothing can fail any more
        requireWritable(file);
    }
    if (existing == Existing::Kept) {
        requireDone(SetFilePointerEx(file.get(), {}, nullptr, FILE_END));
    } else if (existing == Existing::Emptied) {
        requireDone(SetEndOfFile(file.get()));
    }
    return file;
}

std::unique_ptr<OutputFile> createWin32File(const std::string& path, Existing existing) {
    return std::make_unique<Win32OutputFile>(
        openToWrite(path, existing, GENERIC_WRITE, FILE_SHARE_READ));
}

} // namespace tarnwick
