#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

class Form;

// One entry of a form's menu bar, or of a menu below it; a member of the form. "&" stands before
// the letter of its access key, and the caption "-" makes it a separating line.
class MenuItem {
  public:
    // In the menu bar of `form`.
    MenuItem(Form& form, std::string_view name, std::string_view caption);
    // In the menu below `parent`, which must outlive it.
    MenuItem(MenuItem& parent, std::string_view name, std::string_view caption);
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;
    ~MenuItem() = default;

    [[nodiscard]] const std::string& name() const noexcept { return name_; }
    [[nodiscard]] const std::string& caption() const noexcept { return caption_; }
    [[nodiscard]] bool isSeparator() const noexcept { return caption_ == "-"; }
    // The entries of the menu below it, from top to bottom.
    [[nodiscard]] const std::vector<MenuItem*>& items() const noexcept { return items_; }

    // The user chose it, which does nothing for a separator or where a menu is below it. The focus
    // stays where it is.
    void userClicked();

    std::function<void()> Click;

  private:
    Form& form_;
    std::string name_;
    std::string caption_;
    std::vector<MenuItem*> items_;
};

} // namespace tarnwick
