#pragma once

#include "platform/left_out.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// A record's name comes from a folder that others may write to, and goes into command lines between
// quotation marks. Whether it stays a name there: no quotation mark, no control character and none
// of <>|*?:/\ . Windows has no such names; whatever a file system or a conversion brings, none of
// them becomes a command or a path.
[[nodiscard]] bool staysName(std::string_view record) noexcept;

// Takes the records out whose names do not stay names, and tells which.
[[nodiscard]] LeftOut refuseUnsafeNames(std::vector<std::string>& records);

} // namespace tarnwick
