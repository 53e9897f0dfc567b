#pragma once

#include <string_view>

namespace tarnwick {

// What stands behind the program's own name, which may be quoted, without the blanks between.
[[nodiscard]] std::string_view behindProgramName(std::string_view commandLine) noexcept;

} // namespace tarnwick
