#pragma once

#include "platform/files.hpp"

#include <memory>
#include <string>

namespace tarnwick {

// As Files::openForReading, Files::create, Files::append and
// Files::createNew; `path` is possible.

[[nodiscard]] std::unique_ptr<InputFile> openWin32File(const std::string& path);

enum class Existing { Emptied, Kept, Refused };
[[nodiscard]] std::unique_ptr<OutputFile> createWin32File(const std::string& path,
                                                          Existing existing);

} // namespace tarnwick
