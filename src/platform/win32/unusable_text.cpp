#include "platform/win32/unusable_text.hpp"

#include "platform/win32/system_text.hpp"

namespace tarnwick {

void tellUnusable(HWND owner, const std::wstring& text) {
    const auto message = L"\"" + toWide(shownText(text)) +
                         L"\" holds characters that the system's code page does not have.\r\n"
                         L"Please use another name.";
    MessageBoxW(owner, message.c_str(), L"Warning",
                MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL | MB_SETFOREGROUND);
}

} // namespace tarnwick
