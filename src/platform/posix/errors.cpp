#include "platform/posix/errors.hpp"

#include <cerrno>

namespace tarnwick {

ErrorNumber errorNumber(int systemError) noexcept {
    switch (systemError) {
    case ENOENT:
        return ErrorNumber::FileNotFound;
    case ENOTDIR:
        return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EEXIST:
    case EISDIR:
    case ENOTEMPTY:
        return ErrorNumber::PathFileAccess;
    case EXDEV:
        return ErrorNumber::DifferentDrive;
    case EAGAIN:
    case EBUSY:
    case ETXTBSY:
        return ErrorNumber::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return ErrorNumber::DiskFull;
    case EMFILE:
    case ENFILE:
        return ErrorNumber::TooManyFiles;
    case ENAMETOOLONG:
    case EINVAL:
    case ELOOP:
        return ErrorNumber::BadFileName;
    case ENODEV:
    case ENXIO:
        return ErrorNumber::DeviceUnavailable;
    case ENOMEM:
        return ErrorNumber::OutOfMemory;
    default:
        return ErrorNumber::DeviceIO;
    }
}

void raiseSystemError(int systemError) {
    throw RunTimeError(errorNumber(systemError), systemError);
}

} // namespace tarnwick
