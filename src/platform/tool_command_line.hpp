#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarnwick {

// The command line from which the C run-time library of Windows gives a program exactly these
// arguments. `program`, which becomes the first, holds no quotation mark, as no file's name does;
// no argument holds a NUL. In wide characters, for in some code pages "\" is also the second byte
// of a letter.
[[nodiscard]] std::wstring commandLineOf(std::wstring_view program,
                                         std::span<const std::wstring> arguments);

} // namespace tarnwick
