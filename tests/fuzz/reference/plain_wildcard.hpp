#pragma once

#include <string>
#include <string_view>

namespace tarnwick::reference {

// As matchesWildcard, by trying every way. Takes time beyond all measure for long patterns.
[[nodiscard]] bool matchesWildcard(const std::string& name, const std::string& pattern);

// As matchesAnyWildcard.
[[nodiscard]] bool matchesAnyWildcard(const std::string& name, const std::string& patterns);

} // namespace tarnwick::reference
