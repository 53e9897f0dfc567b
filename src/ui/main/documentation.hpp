#pragma once

#include <string_view>

namespace tarnwick {

// The web addresses of the tools' online documentation, as this program was built with.
[[nodiscard]] std::string_view mpDocumentation() noexcept;
[[nodiscard]] std::string_view cnsDocumentation() noexcept;

} // namespace tarnwick
