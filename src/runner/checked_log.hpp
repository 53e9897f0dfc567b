#pragma once

#include "platform/files.hpp"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tarnwick {

// What the logs of a state folder have in common (docs/run-log.md): a first line that says what the
// file is, and below it lines with a checksum (log_fields.hpp), each of them whole or dropped.

struct LogKind {
    std::string_view title; // the first line, less the number of the version
    int version = 1;
    std::string_view name; // for people, at the beginning of a sentence
};

// What is wrong with a log: those lines are dropped.
struct LogFaults {
    std::size_t damaged = 0; // lines in the middle that are not whole
    bool torn = false;       // the last line is not: its writing was cut short

    bool operator==(const LogFaults&) const = default;
};

// In bytes. No longer line is written; one that is read is cut there, and counts as not whole.
inline constexpr std::size_t longestLogLine = 4'000'000;

// Gives `take` each line that is not blank, without its end; `take` returns whether the line is
// whole. A file that is not there has no lines. Memory: one line. Raises what Files::openForReading
// and InputFile::read raise, and 321 (with a description for people) where the file is no such log
// or one of a newer version.
LogFaults readCheckedLog(const Files& files, std::string_view path, const LogKind& kind,
                         const std::function<bool(std::string_view line)>& take);

// Whether a line may be added to the file: it is such a log of this version, or not there yet.
// Reads only the title. Raises what Files::openForReading and InputFile::read raise.
[[nodiscard]] bool isThatLog(const Files& files, std::string_view path, const LogKind& kind);

// Makes a log anew, in one step, of the lines that `keep` returns true for. On a system that
// replaces no file which somebody is reading, the log may stay as it is: the next run is soon
// enough. Memory: one line. Raises what readCheckedLog and Files raise; the log is then as it was.
void makeLogAnew(Files& files, const std::string& path, const LogKind& kind,
                 const std::function<bool(std::string_view line)>& keep);

// Adds lines to a log. When write returns, the system has the line: it outlasts the end of this
// program, not a failure of the machine.
class LogEnd {
  public:
    // Makes the log where there is none. Raises what Files raises.
    LogEnd(Files& files, const std::string& path, const LogKind& kind);

    // With its "\n". Raises 61, 57.
    void write(std::string_view line);

    // At a run's end: returns when all is on the medium. Raises 61, 57.
    void close();

  private:
    std::unique_ptr<OutputFile> file_;
};

} // namespace tarnwick
