#include "ui/win32/dialog_view.hpp"

#include "platform/run_time_error.hpp"
#include "platform/win32/asking_window.hpp"
#include "platform/win32/system_text.hpp"
#include "ui/forms/measures.hpp"

#include <cstdint>

namespace tarnwick {

void DialogView::runModal() {
    const INT_PTR result = DialogBoxParamW(GetModuleHandleW(nullptr), toWide(form().name()).c_str(),
                                           askingWindow(), &DialogView::procedure,
                                           reinterpret_cast<LPARAM>(static_cast<FormView*>(this)));
    const DWORD code = GetLastError();
    release();
    if (result == -1) {
        throw RunTimeError(ErrorNumber::InternalError, static_cast<std::int32_t>(code));
    }
}

void DialogView::made() {
    bind();
    form().show();
    if (form().visible()) {
        showFocus();
    } else {
        close();
    }
}

void DialogView::close() noexcept {
    EndDialog(dialog(), 0);
}

Size DialogView::windowSize() const noexcept {
    RECT content{};
    GetClientRect(dialog(), &content);
    return {.width = toTwips(content.right, dpi()) + windowFrame.width,
            .height = toTwips(content.bottom, dpi()) + windowFrame.height};
}

} // namespace tarnwick
