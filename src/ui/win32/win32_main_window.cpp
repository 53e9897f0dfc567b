#include "ui/win32/win32_main_window.hpp"

#include "platform/run_time_error.hpp"
#include "platform/win32/system_text.hpp"
#include "ui/forms/measures.hpp"
#include "ui/win32/form_view.hpp"
#include "ui/win32/view_messages.hpp"

#include <cstdint>
#include <optional>

namespace tarnwick {
namespace {

class MainView final : public FormView {
  public:
    explicit MainView(Form& form) : FormView(form) {}
    MainView(const MainView&) = delete;
    MainView& operator=(const MainView&) = delete;
    ~MainView() override {
        if (dialog() != nullptr) { // what showing it has raised is on its way
            DestroyWindow(dialog());
            form().detach();
            form().hide();
        }
    }

    [[nodiscard]] HWND make() {
        HWND window = CreateDialogParamW(GetModuleHandleW(nullptr), toWide(form().name()).c_str(),
                                         nullptr, &MainView::procedure,
                                         reinterpret_cast<LPARAM>(static_cast<FormView*>(this)));
        if (window == nullptr && !failed()) {
            const DWORD code = GetLastError();
            throw RunTimeError(ErrorNumber::InternalError, static_cast<std::int32_t>(code));
        }
        return window;
    }

    void showWindow() {
        if (failed()) {
            return;
        }
        form().show();
        if (isOpen()) {
            ShowWindow(dialog(), SW_SHOWNORMAL);
            showFocus();
        }
    }

    [[nodiscard]] bool isOpen() const noexcept { return form().visible() && !failed(); }

    void end() {
        DestroyWindow(dialog());
        release();
    }

  private:
    void made() override { bind(); }

    // Only hides the window, which a handler that is still running may need. end() destroys it,
    // when the loop of events is over.
    void close() noexcept override {
        ShowWindow(dialog(), SW_HIDE);
        // The loop of events looks after every posted message whether the window is still open.
        // What closed it may have been sent by another program, which does not wake the loop.
        PostMessageW(dialog(), WM_NULL, 0, 0);
    }

    // What the form says, as long as the window is that large in pixels.
    [[nodiscard]] Size windowSize() const noexcept override {
        RECT now{};
        GetWindowRect(dialog(), &now);
        const auto inTwips = [this](int pixels, int asked) {
            return toPixels(asked, dpi()) == pixels ? asked : toTwips(pixels, dpi());
        };
        return {.width = inTwips(now.right - now.left, form().window().width),
                .height = inTwips(now.bottom - now.top, form().window().height)};
    }

    void applySize() noexcept override {
        const SIZE wanted = pixelsAt(dpi());
        SetWindowPos(dialog(), nullptr, 0, 0, static_cast<int>(wanted.cx),
                     static_cast<int>(wanted.cy), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    // So the system takes it to another monitor in that size at once: it neither jumps nor
    // flickers.
    [[nodiscard]] std::optional<SIZE> sizeAt(int dpi) const noexcept override {
        return IsIconic(dialog()) == FALSE ? std::optional(pixelsAt(dpi)) : std::nullopt;
    }

    [[nodiscard]] SIZE pixelsAt(int dpi) const noexcept {
        const Bounds& wanted = form().window();
        return {.cx = toPixels(wanted.width, dpi), .cy = toPixels(wanted.height, dpi)};
    }
};

} // namespace

void Win32MainWindow::run(Form& form) {
    MainView view(form);
    window_ = view.make();
    view.showWindow();
    MSG message{};
    while (view.isOpen() && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!handles(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    window_ = nullptr;
    view.end();
}

bool Win32MainWindow::handles(MSG& message) {
    if (window_ == nullptr) {
        return false;
    }
    // Before the system looks for a control: it knows nothing of a menu that bears the same key.
    const bool ours = message.hwnd == window_ || IsChild(window_, message.hwnd) != FALSE;
    if (ours && message.message == WM_SYSCHAR &&
        SendMessageW(window_, ViewMessage::accessKey, message.wParam, 0) != FALSE) {
        return true;
    }
    if (ours && message.message == WM_KEYDOWN && message.wParam == VK_F5) {
        SendMessageW(window_, ViewMessage::functionKey, message.wParam, 0);
        return true;
    }
    return IsDialogMessageW(window_, &message) != FALSE;
}

} // namespace tarnwick
