#pragma once

#include "platform/command_interpreter.hpp"
#include "platform/files.hpp"

#include <memory>
#include <string>
#include <string_view>

namespace tarnwick {

// Writes a batch file line by line, in the code page in which the command interpreter reads it, so
// that a tool gets the characters that the user sees. From the first line on that has a character
// which that code page lacks, the batch is written in the system's code page instead, behind a line
// that makes the interpreter read it so.
class BatchWriter {
  public:
    // Writes into `file`. Refers to `interpreter`.
    BatchWriter(std::unique_ptr<OutputFile> file, const CommandInterpreter& interpreter);

    // Adds the line and its CR LF. Raises what OutputFile::write raises.
    void line(std::string_view text);

    // Asks the system to put on the medium what was written so far. Raises what OutputFile::flush
    // raises.
    void flush();

    // Closes the file. Raises what OutputFile::close raises.
    void close();

  private:
    void append(std::string_view text);

    const CommandInterpreter& interpreter_;
    std::unique_ptr<OutputFile> file_;
    bool systemCodePage_ = false;
};

// The lines that make a batch stand in `folder`, its drive and its path apart: none for a folder
// without a drive, such as one on a network path.
void changeToFolder(BatchWriter& batch, std::string_view folder);

} // namespace tarnwick
