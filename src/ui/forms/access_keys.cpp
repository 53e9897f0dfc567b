#include "ui/forms/access_keys.hpp"

#include "platform/case_folding.hpp"
#include "ui/forms/captioned.hpp"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tarnwick {
namespace {

std::string upper(char key) {
    return upperCase(std::string(1, key));
}

bool bears(const Control& control, std::string_view key) {
    const auto* const captioned = dynamic_cast<const Captioned*>(&control);
    return captioned != nullptr && control.isUsable() && accessKeyOf(captioned->caption()) == key;
}

// The controls that the key leads to, in the order of the focus.
std::vector<Control*> targets(const Form& form, std::string_view key) {
    const std::vector<Control*>& controls = form.controls();
    std::vector<Control*> found;
    for (auto bearer = controls.begin(); bearer != controls.end(); ++bearer) {
        if (bears(**bearer, key)) {
            const auto target = std::find_if(bearer, controls.end(), [](const Control* control) {
                return control->isFocusable() && control->isUsable();
            });
            if (target != controls.end()) {
                found.push_back(*target);
            }
        }
    }
    return found;
}

} // namespace

std::string accessKeyOf(std::string_view caption) {
    for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
        if (caption[at] == '&') {
            ++at; // "&&" is a "&" to be read
            if (caption[at] != '&') {
                return upper(caption[at]);
            }
        }
    }
    return {};
}

bool opensMenu(const Form& form, char key) {
    return std::ranges::any_of(form.menu(), [&](const MenuItem* menu) {
        return accessKeyOf(menu->caption()) == upper(key);
    });
}

AccessKeyTarget accessKeyTarget(const Form& form, char key) {
    const std::vector<Control*> found = targets(form, upper(key));
    if (found.empty()) {
        return {};
    }
    const auto place = [&form](const Control* control) {
        return std::ranges::find(form.controls(), control);
    };
    const auto next = std::ranges::find_if(found, [&](const Control* control) {
        return form.focused() != nullptr && place(control) > place(form.focused());
    });
    return {.control = next == found.end() ? found.front() : *next, .isOnly = found.size() == 1};
}

} // namespace tarnwick
