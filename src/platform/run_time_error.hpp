#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace tarnwick {

// What is known of one run-time error. Number 0 means that there is none.
struct ErrorRecord {
    std::int32_t number = 0;
    std::string source;            // the component that raised it
    std::string description;       // for people, without a full stop
    std::int32_t lastDllError = 0; // the operating system's own code, 0 when it gave none

    bool operator==(const ErrorRecord&) const = default;
};

// The error numbers that platform code raises. Callers tell errors apart by these alone.
enum class ErrorNumber : std::int32_t {
    OutOfMemory = 7,
    InternalError = 51,
    BadFileName = 52,
    FileNotFound = 53,
    DeviceIO = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    DifferentDrive = 74,
    PathFileAccess = 75,
    PathNotFound = 76,
    InvalidFileFormat = 321,
};

// The one exception type of this program.
class RunTimeError : public std::exception {
  public:
    explicit RunTimeError(ErrorRecord record) : record_(std::move(record)) {}
    // An error of this program's own, with the number's usual description.
    explicit RunTimeError(ErrorNumber number, std::int32_t lastDllError = 0);
    // The same with a description that says more.
    RunTimeError(ErrorNumber number, std::string description);

    // This error, for whoever knows more of it than where it was raised.
    [[nodiscard]] RunTimeError described(std::string description) const;

    [[nodiscard]] const ErrorRecord& record() const noexcept { return record_; }
    [[nodiscard]] bool is(ErrorNumber number) const noexcept {
        return record_.number == static_cast<std::int32_t>(number);
    }
    [[nodiscard]] const char* what() const noexcept override { return record_.description.c_str(); }

  private:
    ErrorRecord record_;
};

// The usual description of a number, such as "File not found" for 53.
[[nodiscard]] std::string_view describe(ErrorNumber number);

} // namespace tarnwick
