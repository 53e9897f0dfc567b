#pragma once

#include "ui/forms/form.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// The access key in a caption, the character behind its first single "&", in upper case; empty
// where there is none.
[[nodiscard]] std::string accessKeyOf(std::string_view caption);

// What Alt and a key lead to in a form. Captions may bear the same key: a menu of the menu bar
// comes before every control, and controls take turns.

// Whether it opens a menu of the menu bar.
[[nodiscard]] bool opensMenu(const Form& form, char key);

struct AccessKeyTarget {
    Control* control = nullptr; // null: the key leads nowhere
    bool isOnly = false;        // no other control has it: a control to click is clicked, too
};

// The control to go to: the next one after the focus, and the first one behind the last. The key is
// in its own caption, or in that of the label or frame before it.
[[nodiscard]] AccessKeyTarget accessKeyTarget(const Form& form, char key);

} // namespace tarnwick
