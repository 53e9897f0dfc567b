#pragma once

#include "platform/desktop.hpp"
#include "platform/run_time_error.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tarnwick {

// The whole message boxes that tests expect.

inline Message warning(std::string_view text, std::string_view title = "Warning") {
    return {.text = std::string(text),
            .title = std::string(title),
            .icon = MessageIcon::Exclamation,
            .buttons = MessageButtons::Ok};
}

// The error report of `procedure` in the form or module `caller`.
inline Message errorReport(std::string_view caller, std::string_view procedure, std::int32_t number,
                           std::string_view description, std::int32_t lastDllError) {
    std::string text = "Caller:            ";
    text.append(caller).append(" - ").append(procedure);
    text.append("\r\nSource:            Tarnwick\r\nNumber:            ");
    text.append(std::to_string(number));
    text.append("\r\nDescription:       ").append(description);
    text.append("\r\nLastDllErrorError: ").append(std::to_string(lastDllError));
    return {.text = std::move(text),
            .title = "Tarnwick",
            .icon = MessageIcon::None,
            .buttons = MessageButtons::Ok};
}

// The same, about an error of this program's own.
inline Message errorReport(std::string_view caller, std::string_view procedure, ErrorNumber number,
                           std::int32_t lastDllError = 0) {
    return errorReport(caller, procedure, static_cast<std::int32_t>(number), describe(number),
                       lastDllError);
}

} // namespace tarnwick
