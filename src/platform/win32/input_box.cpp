#include "platform/win32/input_box.hpp"

#include "platform/win32/dialog_template.hpp"
#include "platform/win32/errors.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/win32/unusable_text.hpp"

#include <cstddef>

namespace tarnwick {
namespace {

constexpr int promptId = 101;

struct InputBox {
    const std::string& prompt;
    const std::string& title;
    std::string line;
};

DialogTemplate inputBoxTemplate() {
    DialogTemplate dialog(DS_MODALFRAME | DS_CENTER | WS_POPUP | WS_CAPTION | WS_SYSMENU,
                          {.x = 0, .y = 0, .width = 270, .height = 105});
    // A "&" in a prompt is a character like any other.
    dialog.add(ControlClass::Static, promptId, SS_LEFT | SS_NOPREFIX,
               {.x = 7, .y = 7, .width = 256, .height = 52}, L"");
    dialog.add(ControlClass::Edit, inputBoxField, WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
               {.x = 7, .y = 65, .width = 256, .height = 12}, L"");
    dialog.add(ControlClass::Button, IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP,
               {.x = 159, .y = 84, .width = 50, .height = 14}, L"OK");
    dialog.add(ControlClass::Button, IDCANCEL, BS_PUSHBUTTON | WS_TABSTOP,
               {.x = 213, .y = 84, .width = 50, .height = 14}, L"Cancel");
    return dialog;
}

std::wstring textOf(HWND control) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    const int length = GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

// The system hands addresses on as numbers.
InputBox* asInputBox(LONG_PTR data) noexcept {
    return reinterpret_cast<InputBox*>(data); // NOLINT(performance-no-int-to-ptr)
}

INT_PTR CALLBACK inputBoxProcedure(HWND dialog, UINT message, WPARAM word, LPARAM data) {
    if (message == WM_INITDIALOG) {
        const auto* box = asInputBox(data);
        SetWindowLongPtrW(dialog, DWLP_USER, data);
        SetWindowTextW(dialog, toWide(box->title).c_str());
        SetDlgItemTextW(dialog, promptId, toWide(box->prompt).c_str());
        SetFocus(GetDlgItem(dialog, inputBoxField));
        return FALSE; // the focus is set
    }
    if (message != WM_COMMAND || (LOWORD(word) != IDOK && LOWORD(word) != IDCANCEL)) {
        return FALSE;
    }
    if (LOWORD(word) == IDOK) {
        const auto typed = textOf(GetDlgItem(dialog, inputBoxField));
        auto line = toSystemText(typed);
        if (!line) { // stays open: nothing that was typed is lost
            tellUnusable(dialog, typed);
            return TRUE;
        }
        asInputBox(GetWindowLongPtrW(dialog, DWLP_USER))->line = *std::move(line);
    }
    EndDialog(dialog, LOWORD(word));
    return TRUE;
}

} // namespace

std::string runInputBox(HWND owner, const std::string& prompt, const std::string& title) {
    InputBox box{.prompt = prompt, .title = title, .line = {}};
    const auto dialog = inputBoxTemplate();
    const auto result = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), dialog.get(), owner,
                                                inputBoxProcedure, reinterpret_cast<LPARAM>(&box));
    if (result <= 0) {
        raiseSystemError(ErrorNumber::InternalError, GetLastError());
    }
    return box.line;
}

} // namespace tarnwick
