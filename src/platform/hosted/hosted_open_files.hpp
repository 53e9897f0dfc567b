#pragma once

#include "platform/files.hpp"
#include "platform/hosted/file_descriptor.hpp"

#include <memory>
#include <string>

namespace tarnwick {

// Open files of this machine, shared the way Windows shares them: every open file is held against
// removal, one that is written against a second writer. The locks are advisory ones, on two bytes
// far behind any content; other programs meet them only when they ask for them.

// Opens what is there, a file or a folder, without holding it; not open where nothing is.
// Raises 75 (not allowed).
[[nodiscard]] FileDescriptor openIfThere(const std::string& hostPath);

// Reads an open file, from now on held. Raises 75 (a folder, or not allowed), 70.
[[nodiscard]] std::unique_ptr<InputFile> readFrom(FileDescriptor file);

// Raises 53 when nothing is there, or a folder.
void requireFile(const FileDescriptor& file);

// Raises 70 when anybody holds the file.
void requireNotInUse(const FileDescriptor& file);

// Raises 75 when it is a folder or read-only, 70 when anybody holds it.
void requireReplaceable(const FileDescriptor& file);

// Gives `heir` the permissions of `file`, as far as the system lets this user.
void takeOverMode(const FileDescriptor& heir, const FileDescriptor& file);

enum class Existing { Emptied, Kept, Refused };
[[nodiscard]] std::unique_ptr<OutputFile> createHostFile(const std::string& hostPath,
                                                         Existing existing);

// Keeps the file to itself as long as it is open: nobody can open it. Raises 70.
[[nodiscard]] FileDescriptor openExclusively(const std::string& hostPath);

} // namespace tarnwick
