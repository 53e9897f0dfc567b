#include "ui/forms/list_box.hpp"

#include "common/keep_only.hpp"
#include "platform/wildcard.hpp"
#include "ui/forms/form.hpp"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tarnwick {
namespace {

constexpr int widthWithoutView = 8;

void sortByName(std::vector<std::string>& names) {
    if (!std::ranges::is_sorted(names, nameLess)) { // most lists come sorted
        sortNames(names);
    }
}

bool isPlaceIn(const std::vector<std::string>& items, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < items.size();
}

} // namespace

ListBox::ListBox(Form& form, std::string_view name) : Control(form, name) {
    widths_.fill(widthWithoutView);
}

void ListBox::setItems(std::vector<std::string> items) {
    sortByName(items);
    const bool same = selectedCount_ == 0 && items == items_;
    items_ = std::move(items);
    selected_.assign(items_.size(), false);
    selectedCount_ = 0;
    if (!same) {
        itemsChanged();
    }
}

void ListBox::add(std::vector<std::string> items) {
    if (items.empty()) {
        return;
    }
    sortByName(items);
    std::vector<std::string> merged;
    std::vector<bool> selected;
    merged.reserve(items_.size() + items.size());
    selected.reserve(items_.size() + items.size());
    std::size_t old = 0;
    for (std::string& item : items) {
        while (old < items_.size() && !nameLess(item, items_[old])) {
            selected.push_back(selected_[old]);
            merged.push_back(std::move(items_[old++]));
        }
        selected.push_back(false);
        merged.push_back(std::move(item));
    }
    for (; old < items_.size(); ++old) {
        selected.push_back(selected_[old]);
        merged.push_back(std::move(items_[old]));
    }
    items_ = std::move(merged);
    selected_ = std::move(selected);
    itemsChanged();
}

std::vector<std::string> ListBox::takeSelected() {
    std::vector<std::string> taken;
    if (selectedCount_ == 0) {
        return taken;
    }
    taken.reserve(selectedCount_);
    std::vector<std::string> kept;
    kept.reserve(items_.size() - selectedCount_);
    for (std::size_t i = 0; i < items_.size(); ++i) {
        (selected_[i] ? taken : kept).push_back(std::move(items_[i]));
    }
    items_ = std::move(kept);
    selected_.assign(items_.size(), false);
    selectedCount_ = 0;
    itemsChanged();
    return taken;
}

std::vector<std::string> ListBox::takeAll() {
    std::vector<std::string> taken;
    taken.swap(items_);
    selected_.clear();
    selectedCount_ = 0;
    if (!taken.empty()) {
        itemsChanged();
    }
    return taken;
}

void ListBox::retain(const std::vector<bool>& kept) {
    const std::size_t before = items_.size();
    keepOnly(kept, items_);
    keepOnly(kept, selected_);
    if (items_.size() != before) {
        selectedCount_ = static_cast<std::size_t>(std::ranges::count(selected_, true));
        itemsChanged();
    }
}

void ListBox::itemsChanged() {
    ++changes_;
    tellView(Property::Items);
}

void ListBox::clearSelection() {
    if (selectedCount_ != 0) {
        selected_.assign(items_.size(), false);
        selectedCount_ = 0;
        tellView(Property::Selection);
    }
}

int ListBox::widestItem(std::string_view prefix) const {
    const auto width = [this](std::string_view text) {
        return std::accumulate(text.begin(), text.end(), 0, [this](int sum, char character) {
            return sum + widths_[static_cast<unsigned char>(character)];
        });
    };
    int widest = 0;
    for (const std::string& item : items_) {
        widest = std::max(widest, width(item));
    }
    return items_.empty() ? 0 : width(prefix) + widest;
}

void ListBox::measured(const CharacterWidths& widths) {
    if (widths_ != widths) {
        widths_ = widths;
        fire(Remeasured);
    }
}

void ListBox::userSelected(std::span<const int> indices) {
    const std::size_t changes = changes_;
    const bool mayChange = form().focused() != this;
    std::vector<std::string> names = mayChange ? namesAt(indices) : std::vector<std::string>();
    if (!userBroughtFocus()) {
        tellView(Property::Selection);
        return;
    }
    if (changes != changes_) {
        selectNames(std::move(names));
    } else {
        selected_.assign(items_.size(), false);
        for (const int index : indices) {
            if (isPlaceIn(items_, index)) {
                selected_[static_cast<std::size_t>(index)] = true;
            }
        }
        selectedCount_ = static_cast<std::size_t>(std::ranges::count(selected_, true));
    }
    fire(Click);
}

std::vector<std::string> ListBox::namesAt(std::span<const int> indices) const {
    std::vector<std::string> names;
    names.reserve(indices.size());
    for (const int index : indices) {
        if (isPlaceIn(items_, index)) {
            names.push_back(items_[static_cast<std::size_t>(index)]);
        }
    }
    return names;
}

void ListBox::selectNames(std::vector<std::string> names) {
    std::ranges::sort(names);
    for (std::size_t i = 0; i < items_.size(); ++i) {
        selected_[i] = std::ranges::binary_search(names, items_[i]);
    }
    selectedCount_ = static_cast<std::size_t>(std::ranges::count(selected_, true));
    tellView(Property::Selection);
}

void ListBox::userSelectedAll() {
    if (userBroughtFocus() && selectedCount_ != items_.size()) {
        selected_.assign(items_.size(), true);
        selectedCount_ = items_.size();
        tellView(Property::Selection);
        fire(Click);
    }
}

void ListBox::userDoubleClicked() {
    if (userBroughtFocus()) {
        fire(DblClick);
    }
}

} // namespace tarnwick
