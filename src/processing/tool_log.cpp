#include "processing/tool_log.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"

namespace tarnwick {

std::optional<std::string> logFilePath(const BatchDefinition& definition, const Files& files) {
    const std::string& name = definition.sCommandLineLogFile;
    if (!hasBackslash(name)) {
        return joinPath(definition.sInputFolder, name);
    }
    return FolderExists(files, GetFolderPath(name)) ? std::optional(name) : std::nullopt;
}

void ToolLog::write(std::string_view statement) {
    file_->write(std::string(statement).append(lineEnd));
    file_->drain();
}

} // namespace tarnwick
