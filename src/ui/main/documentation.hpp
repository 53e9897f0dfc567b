#pragma once

#include <string_view>

namespace tarnwick {

// The web addresses of the tools' online documentation, as this program was built with.
inline constexpr std::string_view mpDocumentation = TARNWICK_MP_HELP_URL;
inline constexpr std::string_view cnsDocumentation = TARNWICK_CNS_HELP_URL;

} // namespace tarnwick
