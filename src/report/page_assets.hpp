#pragma once

#include <string_view>

namespace tarnwick {

// page.css and page.js, which stand in every page.
[[nodiscard]] std::string_view pageStyle() noexcept;
[[nodiscard]] std::string_view pageScript() noexcept;

} // namespace tarnwick
