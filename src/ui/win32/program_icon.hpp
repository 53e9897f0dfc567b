#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>

namespace tarnwick {

struct IconDeleter {
    void operator()(HICON icon) const noexcept { DestroyIcon(icon); }
};
using IconHandle = std::unique_ptr<std::remove_pointer_t<HICON>, IconDeleter>;

// The icon of that name in the program's resources, in pixels as large as that. Null where there is
// none.
[[nodiscard]] IconHandle loadIcon(const std::wstring& name, SIZE size);

// The program's icon on one of its windows: in the title, in the taskbar and where the user
// switches between windows. Must outlive the window.
class WindowIcons {
  public:
    // As large as the window's resolution asks for now. A window without room for an icon, such as
    // a dialog that belongs to another window, stays without.
    void show(HWND window);

  private:
    IconHandle large_;
    IconHandle small_;
};

} // namespace tarnwick
