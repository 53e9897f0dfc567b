#pragma once

#include <map>
#include <string>

namespace tarnwick {

// The texts of the controls in that dialog resource (a DIALOGEX) of this program, by the controls'
// numbers. Not every window keeps the text that it was made with. Empty when there is no such
// resource.
[[nodiscard]] std::map<int, std::string> textsInResource(const std::string& dialog);

} // namespace tarnwick
