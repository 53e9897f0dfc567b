#include "ui/win32/check_box_picture.hpp"

#include "platform/win32/system_library.hpp"

#include <uxtheme.h>
#include <vssym32.h>

#include <memory>
#include <type_traits>

namespace tarnwick {
namespace {

// What is asked of the themes; all of it null where there are none.
struct ThemeFunctions {
    template <typename Function>
    [[nodiscard]] static Function* named(const char* name) noexcept {
        return systemFunction<Function>(L"uxtheme.dll", name);
    }

    decltype(OpenThemeData)* open = named<decltype(OpenThemeData)>("OpenThemeData");
    decltype(CloseThemeData)* close = named<decltype(CloseThemeData)>("CloseThemeData");
    decltype(GetThemePartSize)* partSize = named<decltype(GetThemePartSize)>("GetThemePartSize");
    decltype(DrawThemeBackground)* drawBackground =
        named<decltype(DrawThemeBackground)>("DrawThemeBackground");
};

const ThemeFunctions& themeFunctions() noexcept {
    static const ThemeFunctions functions;
    return functions;
}

struct ThemeCloser {
    void operator()(HTHEME theme) const noexcept { themeFunctions().close(theme); }
};
using Theme = std::unique_ptr<std::remove_pointer_t<HTHEME>, ThemeCloser>;

Theme themeOf(HWND window, const wchar_t* classes) noexcept {
    const auto open = themeFunctions().open;
    return Theme(open == nullptr ? nullptr : open(window, classes));
}

RECT middleOf(const RECT& area, SIZE size) noexcept {
    const LONG left = area.left + (area.right - area.left - size.cx) / 2;
    const LONG top = area.top + (area.bottom - area.top - size.cy) / 2;
    return {.left = left, .top = top, .right = left + size.cx, .bottom = top + size.cy};
}

} // namespace

void drawCheckBox(HWND window, HDC context, const RECT& area, bool ticked, bool enabled) {
    if (const Theme theme = themeOf(window, L"BUTTON"); theme != nullptr) {
        const int disabledBy = CBS_UNCHECKEDDISABLED - CBS_UNCHECKEDNORMAL;
        const int state =
            (ticked ? CBS_CHECKEDNORMAL : CBS_UNCHECKEDNORMAL) + (enabled ? 0 : disabledBy);
        SIZE size{};
        themeFunctions().partSize(theme.get(), context, BP_CHECKBOX, state, nullptr, TS_DRAW,
                                  &size);
        const RECT place = middleOf(area, size);
        themeFunctions().drawBackground(theme.get(), context, BP_CHECKBOX, state, &place, nullptr);
        return;
    }
    constexpr int sizeAt96 = 13;
    const int size = MulDiv(sizeAt96, static_cast<int>(GetDpiForWindow(window)), 96);
    RECT place = middleOf(area, {.cx = size, .cy = size});
    const UINT state = DFCS_BUTTONCHECK | DFCS_FLAT | (ticked ? DFCS_CHECKED : 0U) |
                       (enabled ? 0U : DFCS_INACTIVE);
    DrawFrameControl(context, &place, DFC_BUTTON, state);
}

} // namespace tarnwick
