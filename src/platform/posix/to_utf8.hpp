#pragma once

#include <string>
#include <string_view>

namespace tarnwick {

// What a text from Windows is in UTF-8. Where all of `bytes` is UTF-8 already, it is that, without
// a byte order mark; else it is text of the Windows code page of that number. Raises 321, in a
// sentence, where a byte is no character there, or no such code page is known.
[[nodiscard]] std::string toUtf8(std::string_view bytes, unsigned codePage);

} // namespace tarnwick
