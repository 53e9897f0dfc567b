#pragma once

#include "ui/forms/control.hpp"

#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// How wide each of the 256 characters is, in pixels.
using CharacterWidths = std::array<int, 256>;

// A list of names, sorted (see nameLess in platform/wildcard.hpp), of which several can be
// selected. It may be long: whatever changes it changes
// any number of items at once, tells the view once, and costs in proportion to the items.
class ListBox final : public Control {
  public:
    ListBox(Form& form, std::string_view name);

    [[nodiscard]] const std::vector<std::string>& items() const noexcept { return items_; }
    [[nodiscard]] bool empty() const noexcept { return items_.empty(); }
    // Nothing is selected afterwards.
    void setItems(std::vector<std::string> items);
    // Each takes its place by name. The items that were there keep their selection; the new ones
    // are not selected.
    void add(std::vector<std::string> items);
    // Takes the selected items, or all, out of the list, in its order.
    [[nodiscard]] std::vector<std::string> takeSelected();
    [[nodiscard]] std::vector<std::string> takeAll();
    // Drops every item i for which kept[i] is false; the others keep their selection. `kept` is as
    // long as the list.
    void retain(const std::vector<bool>& kept);

    [[nodiscard]] std::size_t selectedCount() const noexcept { return selectedCount_; }
    [[nodiscard]] const std::vector<bool>& selection() const noexcept { return selected_; }
    void clearSelection();

    // The width of the widest item with `prefix` before it, in pixels, in the window's font; 0 when
    // there is none. Nothing is asked of the system for it.
    [[nodiscard]] int widestItem(std::string_view prefix = {}) const;
    // The width that can be scrolled to, in pixels: a scroll bar shows when the list is narrower.
    [[nodiscard]] int horizontalExtent() const noexcept { return horizontalExtent_; }
    void setHorizontalExtent(int pixels) {
        set(horizontalExtent_, pixels, Property::HorizontalExtent);
    }

    // For views: the window's font. Fires Remeasured when that is another one than before.
    void measured(const CharacterWidths& widths);

    // The user has selected exactly these items, as the view shows already, and the focus came
    // along. When it did not (see Form), the view is told to show what was selected before. Where
    // leaving another control has refilled the list on the way, the items of the same names are
    // selected, and the view is told.
    void userSelected(std::span<const int> indices);
    // The user has marked all of them at once.
    void userSelectedAll();
    // Two clicks on an item, which the first one has selected.
    void userDoubleClicked();

    std::function<void()> Click; // after the user has changed the selection
    std::function<void()> DblClick;
    std::function<void()> Remeasured; // what widestItem() said does not hold any more

  private:
    void itemsChanged();
    [[nodiscard]] std::vector<std::string> namesAt(std::span<const int> indices) const;
    void selectNames(std::vector<std::string> names);

    std::vector<std::string> items_;
    std::vector<bool> selected_; // as long as items_
    std::size_t selectedCount_ = 0;
    CharacterWidths widths_;
    int horizontalExtent_ = 0;
    std::size_t changes_ = 0; // of the items, so far
};

} // namespace tarnwick
