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

// The records of the input folder, as two lists of file names without folder: those that may be
// selected and those that are to be processed. Both are always sorted by name, without duplicates
// of one another.
class RecordSelection {
  public:
    [[nodiscard]] const std::vector<std::string>& available() const noexcept { return available_; }
    [[nodiscard]] const std::vector<std::string>& selected() const noexcept { return selected_; }

    // Takes a new listing of the folder, sorted by name. A selected file stays selected when the
    // listing still holds its name, without regard to case and to blanks around it, and silently
    // drops out when it does not; all other files of the listing are available.
    void load(std::vector<std::string> listing);

    void selectAll();

  private:
    std::vector<std::string> available_;
    std::vector<std::string> selected_;
};

} // namespace tarnwick
