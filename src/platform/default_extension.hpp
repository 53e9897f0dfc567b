#pragma once

#include <string>
#include <string_view>

namespace tarnwick {

// The path as it stands where its file name has an extension (a "." anywhere in the name). Else
// with the extension of the filter's first entry: ".ini" for "INI File (*.ini)|*.ini|All Files
// (*.*)|*.*". An entry that names several patterns, or another kind of pattern, names no extension.
[[nodiscard]] std::string withDefaultExtension(std::string_view path, std::string_view filter);

} // namespace tarnwick
