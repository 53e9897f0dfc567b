#include "processing/listing_match.hpp"

#include "common/text.hpp"

#include <cstddef>
#include <unordered_map>

namespace tarnwick {
namespace {

std::string sameName(std::string_view name) {
    return upperCase(trim(name));
}

// Where the names stand in the listing: of names that are the same, the last first to be taken.
using Places = std::unordered_map<std::string, std::vector<std::size_t>>;

Places placesOf(const std::vector<std::string>& listing) {
    Places places;
    places.reserve(listing.size());
    for (std::size_t i = 0; i < listing.size(); ++i) {
        places[sameName(listing[i])].push_back(i);
    }
    return places;
}

} // namespace

ListingMatch matchListing(const std::vector<std::string>& listing,
                          const std::vector<std::string>& selected) {
    ListingMatch match{.available = std::vector<bool>(listing.size(), true),
                       .kept = std::vector<bool>(selected.size(), false)};
    if (selected.empty()) {
        return match;
    }
    Places places = placesOf(listing);
    for (std::size_t i = selected.size(); i-- > 0;) {
        const auto found = places.find(sameName(selected[i]));
        if (found != places.end() && !found->second.empty()) {
            match.available[found->second.back()] = false;
            found->second.pop_back();
            match.kept[i] = true;
        }
    }
    return match;
}

} // namespace tarnwick
