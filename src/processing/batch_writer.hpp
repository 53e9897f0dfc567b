#pragma once

#include "platform/command_interpreter.hpp"
#include "platform/files.hpp"

#include <memory>
#include <string_view>

namespace tarnwick {

// Writes a batch file line by line, in the code page in which the command interpreter reads it, so
// that a tool gets the characters that the user sees. From the first line on that has a character
// which that code page lacks, the batch is written in the system's code page instead, behind a line
// that makes the interpreter read it so.
class BatchWriter {
  public:
    // A batch that runs in the user's own console puts the code page back at its end; one that has
    // a console to itself need not.
    enum class CodePage { LeftChanged, PutBack };

    // Writes into `file`. Refers to `interpreter`.
    BatchWriter(std::unique_ptr<OutputFile> file, const CommandInterpreter& interpreter,
                CodePage atEnd = CodePage::LeftChanged);

    // Adds the line and its CR LF. Raises what OutputFile::write raises.
    void line(std::string_view text);

    // Adds what belongs at the end of the batch. Raises as line.
    void end();

    // Asks the system to put on the medium what was written so far. Raises what OutputFile::flush
    // raises.
    void flush() { file_->flush(); }

    // Closes the file. Raises what OutputFile::close raises.
    void close() { file_->close(); }

  private:
    void append(std::string_view text);

    const CommandInterpreter& interpreter_;
    std::unique_ptr<OutputFile> file_;
    CodePage atEnd_;
    bool systemCodePage_ = false;
};

// The lines that make a batch stand in `folder`, its drive and its path apart: none for a folder
// without a drive, such as one on a network path.
void changeToFolder(BatchWriter& batch, std::string_view folder);

} // namespace tarnwick
