#include "platform/win32/dialog_template.hpp"

#include <cstddef>

namespace tarnwick {
namespace {

// Where the count of controls stands in a DLGTEMPLATEEX, in words.
constexpr std::size_t countAt = 8;

} // namespace

DialogTemplate::DialogTemplate(DWORD style, DialogArea area) {
    append(1);      // version
    append(0xFFFF); // extended
    appendDouble(0);
    appendDouble(0);
    appendDouble(style | DS_SHELLFONT);
    append(0); // controls as yet
    appendArea(area);
    append(0); // no menu
    append(0); // the usual class
    appendText(L"");
    append(9); // points
    append(FW_NORMAL);
    append(static_cast<std::uint16_t>(DEFAULT_CHARSET << 8U));
    appendText(L"Segoe UI");
}

void DialogTemplate::add(ControlClass controlClass, DWORD id, DWORD style, DialogArea area,
                         std::wstring_view text) {
    if (words_.size() % 2 != 0) {
        append(0); // each begins at a multiple of four bytes
    }
    appendDouble(0);
    appendDouble(0);
    appendDouble(style | WS_CHILD | WS_VISIBLE);
    appendArea(area);
    appendDouble(id);
    append(0xFFFF);
    append(static_cast<std::uint16_t>(controlClass));
    appendText(text);
    append(0); // no data of its own
    ++words_[countAt];
}

const DLGTEMPLATE* DialogTemplate::get() const noexcept {
    return reinterpret_cast<const DLGTEMPLATE*>(words_.data());
}

void DialogTemplate::appendDouble(DWORD value) {
    append(static_cast<std::uint16_t>(value & 0xFFFFU));
    append(static_cast<std::uint16_t>(value >> 16U));
}

void DialogTemplate::appendArea(DialogArea area) {
    for (const short measure : {area.x, area.y, area.width, area.height}) {
        append(static_cast<std::uint16_t>(measure));
    }
}

void DialogTemplate::appendText(std::wstring_view text) {
    for (const wchar_t character : text) {
        append(static_cast<std::uint16_t>(character));
    }
    append(0);
}

} // namespace tarnwick
