#pragma once

#include "platform/files.hpp"
#include "platform/posix/file_descriptor.hpp"

#include <memory>
#include <string>
#include <string_view>

namespace tarnwick {

// Opens what is there, a file or a folder; not open where nothing is.
// Raises 75 (not allowed).
[[nodiscard]] FileDescriptor openIfThere(const std::string& hostPath);

// Reads an open file. Raises 75 (a folder, or not allowed).
[[nodiscard]] std::unique_ptr<InputFile> readFrom(FileDescriptor file);

// Writes the front of `bytes`; how many of them. Raises 61, 57.
std::size_t writeSome(const FileDescriptor& file, std::string_view bytes);

// All that is in the file; nothing where there is none. Raises as openIfThere and readFrom, and 57.
[[nodiscard]] std::string textOf(const std::string& hostPath);

// Raises 53 when nothing is there, or a folder.
void requireFile(const FileDescriptor& file);

// Raises 75 when it is a folder or read-only.
void requireReplaceable(const FileDescriptor& file);

// Gives `newFile` the permissions of `file`, as far as the system lets this user.
void takeOverMode(const FileDescriptor& newFile, const FileDescriptor& file);

enum class Existing { Emptied, Kept, Refused };
[[nodiscard]] std::unique_ptr<OutputFile> createHostFile(const std::string& hostPath,
                                                         Existing existing);

} // namespace tarnwick
