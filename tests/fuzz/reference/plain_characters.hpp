#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick::reference {

// The characters of a text in the code page of that number, in order; a byte that begins none
// stands alone. One of single bytes, where it is neither UTF-8 nor one of two-byte characters.
[[nodiscard]] std::vector<std::string> charactersOf(std::string_view text, unsigned codePage);

// Where the first one, or the last one, of those characters of ASCII stands; npos without any.
[[nodiscard]] std::size_t firstOf(const std::vector<std::string>& characters,
                                  std::string_view wanted);
[[nodiscard]] std::size_t lastOf(const std::vector<std::string>& characters,
                                 std::string_view wanted);

// With the letters of ASCII as capitals, and no others.
[[nodiscard]] std::string asciiCapitals(const std::vector<std::string>& characters);

} // namespace tarnwick::reference
