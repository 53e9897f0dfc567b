#include "platform/run_time_error.hpp"

#include <utility>

namespace tarnwick {

RunTimeError::RunTimeError(ErrorNumber number, std::int32_t lastDllError)
    : RunTimeError(ErrorRecord{.number = static_cast<std::int32_t>(number),
                               .source = "Tarnwick",
                               .description = std::string(describe(number)),
                               .lastDllError = lastDllError}) {}

RunTimeError::RunTimeError(ErrorNumber number, std::string description) : RunTimeError(number) {
    record_.description = std::move(description);
}

RunTimeError RunTimeError::described(std::string description) const {
    RunTimeError error = *this;
    error.record_.description = std::move(description);
    return error;
}

std::string_view describe(ErrorNumber number) {
    switch (number) {
    case ErrorNumber::OutOfMemory:
        return "Out of memory";
    case ErrorNumber::InternalError:
        return "Internal error";
    case ErrorNumber::BadFileName:
        return "Bad file name or number";
    case ErrorNumber::FileNotFound:
        return "File not found";
    case ErrorNumber::DeviceIO:
        return "Device I/O error";
    case ErrorNumber::FileAlreadyExists:
        return "File already exists";
    case ErrorNumber::DiskFull:
        return "Disk full";
    case ErrorNumber::TooManyFiles:
        return "Too many files";
    case ErrorNumber::DeviceUnavailable:
        return "Device unavailable";
    case ErrorNumber::PermissionDenied:
        return "Permission denied";
    case ErrorNumber::DiskNotReady:
        return "Disk not ready";
    case ErrorNumber::DifferentDrive:
        return "Can't rename with different drive";
    case ErrorNumber::PathFileAccess:
        return "Path/File access error";
    case ErrorNumber::PathNotFound:
        return "Path not found";
    case ErrorNumber::InvalidFileFormat:
        return "Invalid file format";
    }
    return "Application-defined or object-defined error";
}

} // namespace tarnwick
