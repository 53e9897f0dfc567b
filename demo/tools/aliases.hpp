#pragma once

#include "element_table.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace demo {

// Other names of elements.
class Aliases {
  public:
    Aliases() = default;

    // Reads "Alias = Element" lines; blank lines and lines that begin with "#" say nothing.
    // Raises ToolFailure: Unreadable, also for a line that gives no known element an alias.
    Aliases(const std::string& path, Language language);

    // The element behind an alias, compared as people write names; null when there is none.
    [[nodiscard]] const ElementRule* find(std::string_view name) const;

  private:
    struct Alias {
        std::string name;
        const ElementRule* rule = nullptr;
    };
    std::vector<Alias> aliases_;
};

} // namespace demo
