#pragma once

#include <iosfwd>
#include <string_view>

namespace tarnwick {

// The calls of Files and of the files that it opens.
enum class FileOperation {
    CanListFolder,
    FirstNormalFile,
    ListFiles,
    ListFolders,
    Drives,
    CurrentFolder,
    ShortPath,
    OpenForReading,
    Create,
    CreateNew,
    Append,
    Remove,
    CreateFolder,
    MoveOver,
    Replace,
    Read,
    Write,
    Drain,
    Flush,
    Close,
};

[[nodiscard]] std::string_view nameOf(FileOperation operation) noexcept;
std::ostream& operator<<(std::ostream& out, FileOperation operation);

} // namespace tarnwick
