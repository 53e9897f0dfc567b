#pragma once

#include "postprocess/page_links.hpp"

#include <string>
#include <string_view>

namespace tarnwick::reference {

// The page with the rule applied to each of its lines, and every line end as it stood.
[[nodiscard]] std::string rewrittenPage(std::string_view page, const PageRule& rule);

} // namespace tarnwick::reference
