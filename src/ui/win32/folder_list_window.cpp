#include "ui/win32/folder_list_window.hpp"

#include "platform/win32/system_text.hpp"
#include "ui/win32/redraw_pause.hpp"

#include <shellapi.h>

#include <cstddef>

namespace tarnwick {
namespace {

// In twips.
constexpr int pictureSize = 240;
constexpr int gap = 45;
constexpr int indent = 180;

// Of any folder: it need not be there.
IconHandle picture(UINT state) noexcept {
    SHFILEINFOW info{};
    const UINT what = SHGFI_USEFILEATTRIBUTES | SHGFI_ICON | SHGFI_SMALLICON | state;
    SHGetFileInfoW(L"folder", FILE_ATTRIBUTE_DIRECTORY, &info, sizeof info, what);
    return IconHandle(info.hIcon); // null where the system has none
}

} // namespace

void FolderListWindow::fitResolution() {
    closed_ = picture(0);
    open_ = picture(SHGFI_OPENICON);
    SendMessageW(window(), LB_SETITEMHEIGHT, 0, toPixels(pictureSize + gap, dpi()));
}

void FolderListWindow::changed(Property property) {
    if (property == Property::Items) {
        showItems();
    } else if (property == Property::Selection) {
        SendMessageW(window(), LB_SETCURSEL, folderList_.selected(), 0);
    } else {
        ControlWindow::changed(property);
    }
}

void FolderListWindow::showItems() {
    const RedrawPause pause(window());
    SendMessageW(window(), LB_RESETCONTENT, 0, 0);
    for (const FolderList::Entry& entry : folderList_.entries()) {
        SendMessageW(window(), LB_ADDSTRING, 0,
                     reinterpret_cast<LPARAM>(toWide(entry.name).c_str()));
    }
}

int FolderListWindow::selected() const noexcept {
    return static_cast<int>(SendMessageW(window(), LB_GETCURSEL, 0, 0));
}

void FolderListWindow::notified(WORD code) {
    if (selected() < 0) {
        return;
    }
    if (code == LBN_SELCHANGE) {
        folderList_.userSelected(static_cast<std::size_t>(selected()));
    } else if (code == LBN_DBLCLK) {
        folderList_.userOpened(static_cast<std::size_t>(selected()));
    }
}

void FolderListWindow::drawItem(const DRAWITEMSTRUCT& item) {
    const auto& entries = folderList_.entries();
    if (item.itemID >= entries.size()) {
        return;
    }
    const FolderList::Entry& entry = entries[item.itemID];
    const bool selected = (item.itemState & ODS_SELECTED) != 0;
    const bool disabled = (item.itemState & ODS_DISABLED) != 0;
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    RECT rest = item.rcItem;
    const int size = toPixels(pictureSize, dpi());
    rest.left += toPixels(gap + entry.depth * indent, dpi());
    DrawIconEx(item.hDC, rest.left, rest.top + (rest.bottom - rest.top - size) / 2,
               (entry.open ? open_ : closed_).get(), size, size, 0, nullptr, DI_NORMAL);
    rest.left += size + toPixels(gap, dpi());
    const int colour = selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT;
    SetTextColor(item.hDC, GetSysColor(disabled ? COLOR_GRAYTEXT : colour));
    SetBkMode(item.hDC, TRANSPARENT);
    DrawTextW(item.hDC, toWide(entry.name).c_str(), -1, &rest,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    if ((item.itemState & ODS_FOCUS) != 0) {
        DrawFocusRect(item.hDC, &item.rcItem);
    }
}

} // namespace tarnwick
