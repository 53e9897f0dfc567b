#pragma once

#include <string>
#include <string_view>

namespace tarnwick {

// The link that leads from a page in the folder `from` to the folder `to`: relative, so that both
// can move together; where no such way is, on another drive or share of Windows, an absolute one
// with file:. Both are full paths of this system, in UTF-8, with `separator` between folders ("\":
// Windows, where names match without regard to case). Percent-encoded; ends in "/".
[[nodiscard]] std::string linkToFolder(std::string_view from, std::string_view to, char separator);

} // namespace tarnwick
