#pragma once

#include "platform/files.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// The whole content of a file. Raises what Files::openForReading and InputFile::read raise.
[[nodiscard]] std::string bytesOf(const Files& files, std::string_view path);

// Makes the file hold exactly `bytes`. Raises what Files::create and OutputFile raise.
void putBytes(Files& files, std::string_view path, std::string_view bytes);

} // namespace tarnwick
