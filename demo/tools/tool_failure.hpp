#pragma once

#include <exception>
#include <string>
#include <utility>

namespace demo {

// How a tool ends. Errors in a record are no failure: they are what the error report is for.
enum class Status {
    Success = 0,
    BadArguments = 1, // the command line or the configuration file
    Unreadable = 2,   // the input, the configuration file or the aliases file
    Unwritable = 3,   // an output
};

// Ends a tool with a status and a message for the user.
class ToolFailure : public std::exception {
  public:
    ToolFailure(Status status, std::string text) : status_(status), text_(std::move(text)) {}
    [[nodiscard]] Status status() const noexcept { return status_; }
    [[nodiscard]] const char* what() const noexcept override { return text_.c_str(); }

  private:
    Status status_;
    std::string text_;
};

} // namespace demo
