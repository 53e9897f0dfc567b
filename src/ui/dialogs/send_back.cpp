#include "ui/dialogs/send_back.hpp"

#include "common/mod_main.hpp"

namespace tarnwick {

void sendBack(Desktop& desktop, TextBox& field, std::string_view message, std::string_view title) {
    showWarning(desktop, message, title);
    field.selectAll();
    field.setFocus();
}

} // namespace tarnwick
