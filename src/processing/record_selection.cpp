#include "processing/record_selection.hpp"

#include "common/text.hpp"
#include "platform/wildcard.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <ranges>
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

} // namespace

void RecordSelection::load(std::vector<std::string> listing) {
    if (!selected_.empty()) {
        Places places = placesOf(listing);
        std::vector<std::string> stillThere;
        std::vector<bool> taken(listing.size(), false);
        for (std::string& name : std::views::reverse(selected_)) {
            const auto found = places.find(sameName(name));
            if (found != places.end() && !found->second.empty()) {
                taken[found->second.back()] = true;
                found->second.pop_back();
                stillThere.push_back(std::move(name));
            }
        }
        std::ranges::reverse(stillThere);
        selected_ = std::move(stillThere);
        available_.clear();
        for (std::size_t place = 0; place < listing.size(); ++place) {
            if (!taken[place]) {
                available_.push_back(std::move(listing[place]));
            }
        }
        return;
    }
    available_ = std::move(listing);
}

void RecordSelection::selectAll() {
    if (selected_.empty()) {
        selected_.swap(available_);
        return;
    }
    std::vector<std::string> all;
    all.reserve(selected_.size() + available_.size());
    std::merge(std::make_move_iterator(selected_.begin()), std::make_move_iterator(selected_.end()),
               std::make_move_iterator(available_.begin()),
               std::make_move_iterator(available_.end()), std::back_inserter(all), nameLess);
    selected_ = std::move(all);
    available_.clear();
}

} // namespace tarnwick
