#pragma once

#include <string>
#include <string_view>

namespace tarnwick::gallery {

// Each gallery's own, called by the main program as "gallery WHAT RESULT OTHER": shows what it is
// told to and writes into the file RESULT what came of it. False when it knows no such thing.
[[nodiscard]] bool run(std::string_view what, const std::string& resultFile,
                       const std::string& other);

} // namespace tarnwick::gallery
