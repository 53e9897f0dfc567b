#pragma once

#include "platform/files.hpp"
#include "platform/hosted/file_descriptor.hpp"

#include <memory>
#include <string>

namespace tarnwick {

// Open files of this machine, shared the way Windows shares them: every open file is held against
// removal, one that is written against a second writer. The locks are advisory ones, on two bytes
// far behind any content; other programs meet them only when they ask for them.

[[nodiscard]] std::unique_ptr<InputFile> openHostFile(const std::string& hostPath);

enum class Existing { Emptied, Kept, Refused };
[[nodiscard]] std::unique_ptr<OutputFile> createHostFile(const std::string& hostPath,
                                                         Existing existing);

// Raises 70 when anybody has the file open.
void requireNotInUse(const std::string& hostPath);

// Keeps the file to itself as long as it is open: nobody can open it. Raises 70.
[[nodiscard]] FileDescriptor openExclusively(const std::string& hostPath);

} // namespace tarnwick
