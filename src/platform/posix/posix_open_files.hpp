#pragma once

#include "platform/files.hpp"
#include "platform/posix/file_descriptor.hpp"

#include <sys/stat.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

// Opens what is there, a file or a folder; not open where nothing is.
// Raises 75 (not allowed).
[[nodiscard]] FileDescriptor openIfThere(const std::string& hostPath);

// The status of what is there; nothing where nothing is. Raises 75 (not allowed).
enum class Links { Themselves, Followed };
[[nodiscard]] std::optional<struct stat> statusIfThere(const std::string& hostPath, Links links);

[[nodiscard]] struct stat statusOf(const FileDescriptor& file);

// Reads an open file. Raises 75 (a folder, or not allowed).
[[nodiscard]] std::unique_ptr<InputFile> readFrom(FileDescriptor file);

// Writes the front of `bytes`; how many of them. Raises 61, 57.
std::size_t writeSome(const FileDescriptor& file, std::string_view bytes);

// All that is in the file, or its first `most` bytes; nothing where there is none. Raises as
// openIfThere and readFrom, and 57.
[[nodiscard]] std::string textOf(const std::string& hostPath, std::size_t most = std::string::npos);

// Raises 53 when nothing is there, or a folder; else it is what it was given.
const struct stat& requireFile(const std::optional<struct stat>& status);

// Raises 75 when it is a folder or read-only.
void requireReplaceable(const struct stat& status);

enum class Existing { Emptied, Kept, Refused };
[[nodiscard]] std::unique_ptr<OutputFile> createHostFile(const std::string& hostPath,
                                                         Existing existing);

} // namespace tarnwick
