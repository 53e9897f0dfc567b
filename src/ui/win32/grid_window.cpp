#include "ui/win32/grid_window.hpp"

#include "platform/win32/system_text.hpp"
#include "ui/forms/measures.hpp"
#include "ui/win32/accessible_grid.hpp"
#include "ui/win32/form_view.hpp"
#include "ui/win32/key_listener.hpp"
#include "ui/win32/refused_text.hpp"
#include "ui/win32/view_messages.hpp"

#include <windowsx.h>

#include <utility>

namespace tarnwick {
namespace {

constexpr const wchar_t* className = L"TarnwickGrid";

// To the dialog, in WM_COMMAND.
enum Notice : WORD { gotFocus = 1, lostFocus };

constexpr int fontSlot = 0; // of the window's own memory

void tellDialog(HWND window, Notice notice) {
    SendMessageW(GetParent(window), WM_COMMAND,
                 MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(window)), notice),
                 reinterpret_cast<LPARAM>(window));
    InvalidateRect(window, nullptr, FALSE);
}

void drawFrame(HWND window) {
    RECT frame{};
    GetWindowRect(window, &frame);
    OffsetRect(&frame, -frame.left, -frame.top);
    HDC context = GetWindowDC(window);
    FrameRect(context, &frame, GetSysColorBrush(COLOR_BTNSHADOW));
    ReleaseDC(window, context);
}

} // namespace

void GridWindow::registerClass() noexcept {
    WNDCLASSEXW kind{};
    kind.cbSize = sizeof kind;
    kind.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
    kind.lpfnWndProc = &GridWindow::procedure;
    kind.cbWndExtra = sizeof(LONG_PTR);
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    kind.lpszClassName = className;
    RegisterClassExW(&kind); // fails where that is done already
}

GridWindow::GridWindow(Grid& grid, HWND window) : ControlWindow(grid, window), grid_(grid) {
    // A dialog may have made the border a sunken edge, which is wider than gridFrame.
    SetWindowLongPtrW(window, GWL_STYLE,
                      GetWindowLongPtrW(window, GWL_STYLE) | WS_BORDER | WS_CLIPSIBLINGS);
    SetWindowLongPtrW(window, GWL_EXSTYLE,
                      GetWindowLongPtrW(window, GWL_EXSTYLE) & ~LONG_PTR{WS_EX_CLIENTEDGE});
    SetWindowPos(window, nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

GridWindow::~GridWindow() {
    SetWindowLongPtrW(window(), GWLP_USERDATA, 0);
}

LRESULT CALLBACK GridWindow::procedure(HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept {
    auto* const grid = pointerIn<GridWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (grid != nullptr && grid->takesInput(message, wParam, lParam)) {
        return 0;
    }
    switch (message) {
    case WM_GETOBJECT:
        if (grid != nullptr && static_cast<LONG>(lParam) == OBJID_CLIENT) {
            return giveAccessibleGrid(window, wParam);
        }
        break;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS |
               (grid == nullptr ? 0 : dialogCodeForKey(*grid, lParam));
    case WM_SETFOCUS:
        tellDialog(window, gotFocus);
        if (grid != nullptr) {
            grid->tellCurrentCell(); // the system itself tells only of the grid as a whole
        }
        return 0;
    case WM_KILLFOCUS:
        tellDialog(window, lostFocus);
        return 0;
    case WM_GETFONT:
        return GetWindowLongPtrW(window, fontSlot);
    case WM_NCPAINT: {
        const LRESULT result = DefWindowProcW(window, message, wParam, lParam);
        drawFrame(window);
        return result;
    }
    default:
        if (handlesDrawing(window, grid, message, wParam)) {
            return message == WM_ERASEBKGND ? TRUE : 0;
        }
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

// Whether the message is about drawing the window, and is dealt with. Its grid is null before it is
// bound and after.
bool GridWindow::handlesDrawing(HWND window, GridWindow* grid, UINT message, WPARAM wParam) {
    switch (message) {
    case WM_SETFONT:
        SetWindowLongPtrW(window, fontSlot, static_cast<LONG_PTR>(wParam));
        if (grid != nullptr) {
            grid->painter_.forgetFonts();
        }
        InvalidateRect(window, nullptr, FALSE);
        return true;
    case WM_ENABLE:
        InvalidateRect(window, nullptr, FALSE);
        return true;
    case WM_ERASEBKGND:
        return true; // painting covers everything
    case WM_PAINT:
        if (grid != nullptr) {
            grid->paint();
        }
        return grid != nullptr;
    case WM_PRINTCLIENT:
        if (grid != nullptr) {
            RECT area{};
            GetClientRect(window, &area);
            grid->drawInto(pointerIn<HDC>(static_cast<LONG_PTR>(wParam)), area);
        }
        return true;
    default:
        return false;
    }
}

// Into a picture in memory first: nothing flickers.
void GridWindow::paint() {
    PAINTSTRUCT request{};
    HDC screen = BeginPaint(window(), &request);
    RECT area{};
    GetClientRect(window(), &area);
    HDC context = CreateCompatibleDC(screen);
    {
        const GdiHandle<HBITMAP> picture(CreateCompatibleBitmap(screen, area.right, area.bottom));
        const Selected selected(context, picture.get());
        drawInto(context, area);
        BitBlt(screen, 0, 0, area.right, area.bottom, context, 0, 0, SRCCOPY);
    }
    DeleteDC(context);
    EndPaint(window(), &request);
}

void GridWindow::drawInto(HDC context, const RECT& area) {
    painter_.paint(context, area, grid_,
                   {.window = window(),
                    .font = pointerIn<HFONT>(GetWindowLongPtrW(window(), fontSlot)),
                    .dpi = dpi(),
                    .enabled = IsWindowEnabled(window()) != FALSE,
                    .focused = GetFocus() == window()});
}

void GridWindow::changed(Property property) {
    if (property == Property::Cells) {
        showContents();
        tellChangedCell();
    } else if (property == Property::Selection) {
        showContents();
        tellCurrentCell();
    } else if (property != Property::AccessibleName) { // which is asked for
        ControlWindow::changed(property);
        if (property == Property::Bounds) {
            showScrollBar(); // more or fewer rows fit now
        }
    }
}

void GridWindow::fitResolution() {
    painter_.forgetFonts();
    changed(Property::Cells);
}

void GridWindow::showContents() {
    showScrollBar();
    InvalidateRect(window(), nullptr, FALSE);
}

void GridWindow::showScrollBar() {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMin = 1;
    info.nMax = grid_.rows() - 1;
    info.nPage = static_cast<UINT>(grid_.pageRows());
    info.nPos = grid_.topRow();
    SetScrollInfo(window(), SB_VERT, &info, TRUE);
}

GridWindow::Spoken GridWindow::currentCell() const {
    if (grid_.row() >= grid_.rows()) {
        return {};
    }
    return {.place = {.row = grid_.row(), .column = grid_.column()},
            .name = grid_.accessibleText(grid_.row(), grid_.column()),
            .ticked = grid_.cell(grid_.row(), grid_.column()).showsTick()};
}

void GridWindow::tellCurrentCell() {
    if (GetFocus() == window()) {
        told_ = currentCell();
        tellScreenReader(EVENT_OBJECT_FOCUS);
    }
}

void GridWindow::tellChangedCell() {
    Spoken now = currentCell();
    if (GetFocus() != window() || now.place != told_.place) {
        return; // a cell that becomes the current one is told by tellCurrentCell
    }
    const Spoken before = std::exchange(told_, std::move(now));
    if (before.name != told_.name) {
        tellScreenReader(EVENT_OBJECT_NAMECHANGE);
    }
    if (before.ticked != told_.ticked) {
        tellScreenReader(EVENT_OBJECT_STATECHANGE);
    }
}

void GridWindow::tellScreenReader(DWORD event) const noexcept {
    if (told_.place.row > 0) {
        NotifyWinEvent(event, window(), OBJID_CLIENT, accessibleChild(grid_, told_.place));
    }
}

bool GridWindow::takesInput(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto answered = [this](const auto& body) {
        FormView::guarded(GetParent(window()), body);
        return true;
    };
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        SetFocus(window());
        SetCapture(window());
        return answered([&] { pressed(lParam); });
    case WM_LBUTTONUP:
        if (GetCapture() != window()) {
            return true;
        }
        ReleaseCapture();
        return answered([&] { grid_.userReleased(); });
    case WM_KEYDOWN:
        return answered([&] { keyPressed(static_cast<int>(wParam)); });
    case WM_CHAR:
        return answered([&] { typed(static_cast<wchar_t>(wParam)); });
    case WM_VSCROLL:
        return answered([&] { grid_.userScrolled(rowScrolledTo(LOWORD(wParam))); });
    case WM_MOUSEWHEEL:
        return answered([&] { grid_.userTurnedWheel(GET_WHEEL_DELTA_WPARAM(wParam)); });
    default:
        return false;
    }
}

void GridWindow::typed(wchar_t character) {
    const auto text = toSystemText({&character, 1});
    if (text && text->size() == 1) {
        grid_.userTyped(text->front());
    } else {
        tellRefused(window());
    }
}

void GridWindow::pressed(LPARAM place) {
    grid_.userPressed(pixelToTwips(GET_X_LPARAM(place), dpi()),
                      pixelToTwips(GET_Y_LPARAM(place), dpi()));
}

const Grid* GridWindow::gridOf(HWND window) noexcept {
    const auto* const grid = pointerIn<const GridWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return grid == nullptr ? nullptr : &grid->grid_;
}

int GridWindow::rowScrolledTo(WORD how) const noexcept {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    GetScrollInfo(window(), SB_VERT, &info);
    switch (how) {
    case SB_LINEUP:
        return grid_.topRow() - 1;
    case SB_LINEDOWN:
        return grid_.topRow() + 1;
    case SB_PAGEUP:
        return grid_.topRow() - grid_.pageRows();
    case SB_PAGEDOWN:
        return grid_.topRow() + grid_.pageRows();
    case SB_TOP:
        return 1;
    case SB_BOTTOM:
        return grid_.rows();
    case SB_THUMBTRACK:
        return info.nTrackPos;
    default:
        return grid_.topRow();
    }
}

bool GridWindow::isFocusNotice(WORD code) const noexcept {
    return code == gotFocus || code == lostFocus;
}

} // namespace tarnwick
