#pragma once

#include "platform/desktop.hpp"
#include "platform/files.hpp"
#include "platform/run_time_error.hpp"

#include <cstdint>
#include <string_view>

namespace tarnwick {

inline constexpr std::string_view applicationTitle = "Tarnwick";

// The one error report. Shows `error` in a message box, and nothing at all when its number is 0.
// `caller` is the form or module ("frmMain"), `procedure` the declaration line of the procedure
// that trapped the error ("Private Sub cmdOK_Click()").
void ReportError(Desktop& desktop, const ErrorRecord& error, std::string_view caller,
                 std::string_view procedure);

// Shows a warning for a user's error: exclamation icon, OK button.
void showWarning(Desktop& desktop, std::string_view text, std::string_view title = "Warning");

// Opens a file or a web address with the program associated with it. The system's own result;
// nothing is shown when it failed.
std::int32_t StartDoc(Desktop& desktop, std::string_view DocName);

// Whether the folder exists and can be listed, with or without a final "\". Blank is false.
// Never raises: what cannot be asked does not exist.
[[nodiscard]] bool FolderExists(const Files& files, std::string_view path);

// Whether a normal file (no folder, not hidden, not system) matches the untrimmed path. As the path
// is a pattern, one with "*" or "?" exists when any file matches it. Blank is false. Never raises.
[[nodiscard]] bool FileExists(const Files& files, std::string_view path);

} // namespace tarnwick
