#include "ui/win32/win32_form_presenter.hpp"

#include "platform/run_time_error.hpp"
#include "platform/win32/asking_window.hpp"
#include "platform/win32/system_text.hpp"
#include "ui/forms/measures.hpp"
#include "ui/win32/form_view.hpp"

#include <cstdint>

namespace tarnwick {
namespace {

class DialogView final : public FormView {
  public:
    explicit DialogView(Form& form) : FormView(form) {}

    void runModal() {
        const INT_PTR result = DialogBoxParamW(
            GetModuleHandleW(nullptr), toWide(form().name()).c_str(), askingWindow(),
            &DialogView::procedure, reinterpret_cast<LPARAM>(static_cast<FormView*>(this)));
        const DWORD code = GetLastError();
        release();
        if (result == -1) {
            throw RunTimeError(ErrorNumber::InternalError, static_cast<std::int32_t>(code));
        }
    }

  private:
    void made() override {
        bind();
        form().show();
        if (form().visible()) {
            showFocus();
        } else {
            close();
        }
    }

    void close() noexcept override { EndDialog(dialog(), 0); }

    [[nodiscard]] Size windowSize() const noexcept override {
        RECT content{};
        GetClientRect(dialog(), &content);
        return {.width = toTwips(content.right, dpi()) + windowFrame.width,
                .height = toTwips(content.bottom, dpi()) + windowFrame.height};
    }
};

} // namespace

void Win32FormPresenter::showModal(Form& form) {
    DialogView(form).runModal();
}

} // namespace tarnwick
