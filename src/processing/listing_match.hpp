#pragma once

#include <string>
#include <vector>

namespace tarnwick {

// What becomes of a selection when the folder is listed anew. A selected name stays selected when
// the listing still holds it, without regard to case and to blanks around it.
struct ListingMatch {
    std::vector<bool> available; // as long as the listing: names that no selected one stands for
    std::vector<bool> kept;      // as long as the selection: names that the listing still holds
};

// Costs in proportion to both lists. Each listed name goes with one selected name at most.
[[nodiscard]] ListingMatch matchListing(const std::vector<std::string>& listing,
                                        const std::vector<std::string>& selected);

} // namespace tarnwick
