#include "common/mod_main.hpp"

#include "common/text.hpp"
#include "common/trap.hpp"

namespace tarnwick {

void ReportError(Desktop& desktop, const ErrorRecord& error, std::string_view caller,
                 std::string_view procedure) {
    if (error.number == 0) {
        return;
    }
    // Every label is 19 characters wide. The last one repeats "Error" on purpose: support staff
    // search old reports for it.
    std::string text;
    text.append("Caller:            ").append(caller).append(" - ").append(procedure);
    text.append(lineEnd).append("Source:            ").append(error.source);
    text.append(lineEnd).append("Number:            ").append(std::to_string(error.number));
    text.append(lineEnd).append("Description:       ").append(error.description);
    text.append(lineEnd).append("LastDllErrorError: ").append(std::to_string(error.lastDllError));
    desktop.show({.text = std::move(text), .title = std::string(applicationTitle)});
}

void showWarning(Desktop& desktop, std::string_view text, std::string_view title) {
    desktop.show(
        {.text = std::string(text), .title = std::string(title), .icon = MessageIcon::Exclamation});
}

std::int32_t StartDoc(Desktop& desktop, std::string_view DocName) {
    std::int32_t result = 0;
    trap(desktop, "modMain", "Function StartDoc(DocName As String) As Long",
         [&] { result = desktop.openDocument(DocName, "C:\\"); });
    return result;
}

bool FolderExists(const Files& files, std::string_view path) {
    return !trim(path).empty() && files.canListFolder(withBackslash(path));
}

bool FileExists(const Files& files, std::string_view path) {
    if (trim(path).empty()) {
        return false;
    }
    try {
        return !files.firstNormalFile(path).empty();
    } catch (const RunTimeError&) {
        return false; // what the system cannot answer does not exist
    }
}

} // namespace tarnwick
