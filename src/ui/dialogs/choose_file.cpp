#include "ui/dialogs/choose_file.hpp"

#include "platform/run_time_error.hpp"

namespace tarnwick {

std::optional<std::string> chooseFile(Desktop& desktop, const FileDialog& dialog) {
    try {
        return desktop.chooseFile(dialog);
    } catch (const RunTimeError& error) {
        if (!error.is(ErrorNumber::Cancelled)) {
            throw;
        }
        return std::nullopt;
    }
}

} // namespace tarnwick
