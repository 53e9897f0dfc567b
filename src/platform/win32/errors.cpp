#include "platform/win32/errors.hpp"

#include "platform/win32/system_text.hpp"
#include "platform/windows_path.hpp"

#include <cstdint>

namespace tarnwick {
namespace {

bool isNotFound(DWORD systemError) noexcept {
    return systemError == ERROR_FILE_NOT_FOUND || systemError == ERROR_PATH_NOT_FOUND;
}

bool driveExists(const std::string& path) {
    return !beginsWithDrive(path) ||
           GetDriveTypeW((toWide(path.substr(0, 2)) + L'\\').c_str()) != DRIVE_NO_ROOT_DIR;
}

} // namespace

ErrorNumber errorNumber(DWORD systemError) noexcept {
    switch (systemError) {
    case ERROR_FILE_NOT_FOUND:
        return ErrorNumber::FileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_DIRECTORY:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_NO_NET_OR_BAD_PATH:
        return ErrorNumber::PathNotFound;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
        return ErrorNumber::PermissionDenied;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_ALREADY_EXISTS:
    case ERROR_DELETE_PENDING:
        return ErrorNumber::PathFileAccess;
    case ERROR_NOT_SAME_DEVICE:
        return ErrorNumber::DifferentDrive;
    case ERROR_FILE_EXISTS:
        return ErrorNumber::FileAlreadyExists;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return ErrorNumber::DiskFull;
    case ERROR_NOT_READY:
        return ErrorNumber::DiskNotReady;
    case ERROR_BAD_UNIT:
    case ERROR_INVALID_DRIVE:
        return ErrorNumber::DeviceUnavailable;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
        return ErrorNumber::BadFileName;
    case ERROR_TOO_MANY_OPEN_FILES:
        return ErrorNumber::TooManyFiles;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
        return ErrorNumber::OutOfMemory;
    default:
        return ErrorNumber::DeviceIO;
    }
}

void raiseSystemError(DWORD systemError) {
    raiseSystemError(errorNumber(systemError), systemError);
}

void raiseSystemError(ErrorNumber number, DWORD systemError) {
    throw RunTimeError(number, static_cast<std::int32_t>(systemError));
}

void raiseSystemError(DWORD systemError, const std::string& path) {
    if (isNotFound(systemError) && !driveExists(path)) {
        raiseSystemError(ErrorNumber::DeviceUnavailable, systemError);
    }
    raiseSystemError(systemError);
}

Handle required(HANDLE given) {
    Handle handle(given);
    if (!handle.isOpen()) {
        raiseSystemError(GetLastError());
    }
    return handle;
}

void requireDone(BOOL done) {
    if (done == FALSE) {
        raiseSystemError(GetLastError());
    }
}

} // namespace tarnwick
