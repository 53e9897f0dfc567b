#pragma once

#include "platform/files.hpp"
#include "platform/win32/handle.hpp"

#include <windows.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace tarnwick {

// As Files::openForReading, Files::create, Files::append and
// Files::createNew; `path` is possible.

[[nodiscard]] std::unique_ptr<InputFile> openWin32File(const std::string& path);

enum class Existing { Emptied, Kept, Refused };
[[nodiscard]] std::unique_ptr<OutputFile> createWin32File(const std::string& path,
                                                          Existing existing);

// The same as a handle that may do `access` and lets others do `share`; it stands at the byte that
// is written next.
[[nodiscard]] Handle openToWrite(const std::string& path, Existing existing, DWORD access,
                                 DWORD share);

// Writes the front of `bytes`, at least one; how many of them. Raises 61, 57.
std::size_t writeSome(const Handle& file, std::string_view bytes);

// Asks the system to put what the file holds on the medium. Some network drives cannot be asked:
// there that is no error, and the system does what it does by itself.
void putOnMedium(const Handle& file);

} // namespace tarnwick
