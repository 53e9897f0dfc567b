#pragma once

#include "platform/files.hpp"
#include "platform/win32/handle.hpp"

#include <memory>
#include <string>

namespace tarnwick {

// As Files::openForReading, Files::create, Files::append and
// Files::createNew; `path` is possible.

[[nodiscard]] std::unique_ptr<InputFile> openWin32File(const std::string& path);

enum class Existing { Emptied, Kept, Refused };
[[nodiscard]] std::unique_ptr<OutputFile> createWin32File(const std::string& path,
                                                          Existing existing);

// Asks the system to put what the file holds on the medium. Some network drives cannot be asked:
// there that is no error, and the system does what it does by itself.
void putOnMedium(const Handle& file);

} // namespace tarnwick
