#pragma once

#include "definition/batch_definition.hpp"
#include "platform/files.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

// Where a run over the definition writes its log: a bare name lies in the input folder. Nothing
// where the name has a folder that does not exist.
[[nodiscard]] std::optional<std::string> logFilePath(const BatchDefinition& definition,
                                                     const Files& files);

// The tools' command lines of one run, as they were built. Each can be read by others as soon as it
// is written.
class ToolLog {
  public:
    // Replaces what is there. Raises what Files::create raises.
    ToolLog(Files& files, std::string_view path) : file_(files.create(path)) {}

    // Raise what OutputFile raises.
    void write(std::string_view statement);
    void close() { file_->close(); }

  private:
    std::unique_ptr<OutputFile> file_;
};

} // namespace tarnwick
