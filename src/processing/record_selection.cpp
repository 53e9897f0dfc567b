#include "processing/record_selection.hpp"

#include "common/text.hpp"
#include "platform/wildcard.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <unordered_map>
#include <utility>

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

void dropUnless(const std::vector<bool>& kept, std::vector<std::string>& names) {
    std::size_t place = 0;
    std::erase_if(names, [&](const std::string&) { return !kept[place++]; });
}

} // namespace

ListingMatch matchListing(const std::vector<std::string>& listing,
                          const std::vector<std::string>& selected) {
    ListingMatch match{.taken = std::vector<bool>(listing.size(), false),
                       .kept = std::vector<bool>(selected.size(), false)};
    if (selected.empty()) {
        return match;
    }
    Places places = placesOf(listing);
    for (std::size_t i = selected.size(); i-- > 0;) {
        const auto found = places.find(sameName(selected[i]));
        if (found != places.end() && !found->second.empty()) {
            match.taken[found->second.back()] = true;
            found->second.pop_back();
            match.kept[i] = true;
        }
    }
    return match;
}

std::vector<std::string> withoutTaken(std::vector<std::string> listing,
                                      const std::vector<bool>& taken) {
    std::size_t place = 0;
    std::erase_if(listing, [&](const std::string&) { return taken[place++]; });
    return listing;
}

void RecordSelection::load(std::vector<std::string> listing) {
    const ListingMatch match = matchListing(listing, selected_);
    dropUnless(match.kept, selected_);
    available_ = withoutTaken(std::move(listing), match.taken);
}

void RecordSelection::selectAll() {
    if (selected_.empty()) {
        selected_.swap(available_);
        return;
    }
    std::vector<std::string> all;
    all.reserve(selected_.size() + available_.size());
    std::ranges::merge(std::move(selected_), std::move(available_), std::back_inserter(all),
                       nameLess);
    selected_ = std::move(all);
    available_.clear();
}

} // namespace tarnwick
