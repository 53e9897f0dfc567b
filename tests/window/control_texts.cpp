#include "window/control_texts.hpp"

#include "ui/win32/resource_names.hpp"

#include <array>
#include <cstddef>

namespace tarnwick::probe {
namespace {

std::string kindOfButton(HWND window) {
    switch (GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK) {
    case BS_GROUPBOX:
        return "frame";
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
        return "check";
    default:
        return "button";
    }
}

std::string onOneLine(const std::string& text) {
    std::string line;
    for (const char character : text) {
        if (character == '\n') {
            line += " / ";
        } else if (character != '\r') {
            line += character;
        }
    }
    return line;
}

std::string classOf(HWND window) {
    std::wstring name(256, L'\0');
    const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    name.resize(static_cast<std::size_t>(length));
    return utf8(name);
}

} // namespace

std::string utf8(const std::wstring& text) {
    const int units = static_cast<int>(text.size());
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), units, result.data(), size, nullptr, nullptr);
    return result;
}

std::wstring utf16(const std::string& text) {
    const int bytes = static_cast<int>(text.size());
    std::wstring result(text.size(), L'\0'); // never more units than bytes
    result.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, result.data(), bytes)));
    return result;
}

std::string textOf(HWND window) {
    std::wstring text(4096, L'\0');
    const LRESULT length =
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return onOneLine(utf8(text));
}

std::string kindOf(HWND window) {
    static const std::map<std::string, std::string> kinds{{"Edit", "text"},
                                                          {"Static", "label"},
                                                          {"ListBox", "list"},
                                                          {"ComboBox", "combo"},
                                                          {"TarnwickGrid", "grid"},
                                                          {"msctls_statusbar32", "status"},
                                                          {"msctls_progress32", "progress"}};
    const std::string name = classOf(window);
    if (name == "Button") {
        return kindOfButton(window);
    }
    const auto kind = kinds.find(name);
    return kind == kinds.end() ? name : kind->second;
}

std::map<HWND, std::string> namesOfControls(HWND window) {
    std::map<int, HWND> controls;
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        controls.emplace(GetDlgCtrlID(child), child);
    }
    constexpr std::array forms{
        "frmMain",    "frmOptions", "frmOpenFolder", "frmAbout", "frmDisplayCommandLineHelp",
        "frmControls"};
    for (const char* const form : forms) {
        const std::map<int, std::string> texts = textsInResource(form);
        std::map<HWND, std::string> names;
        for (const auto& [number, text] : texts) {
            if (const auto control = controls.find(number); control != controls.end()) {
                names.emplace(control->second, text);
            }
        }
        if (names.size() == controls.size() && names.size() == texts.size()) {
            return names; // no two forms have the same numbers
        }
    }
    return {};
}

} // namespace tarnwick::probe
