#pragma once

#include "ui/win32/clickable_window.hpp"
#include "ui/win32/gdi_handle.hpp"
#include "ui/win32/key_listener.hpp"

#include <windows.h>

namespace tarnwick {

// A push button with the styles BS_OWNERDRAW and BS_NOTIFY, drawn as a link and as wide as its
// text.
class LinkLabelWindow final : public ClickableWindow {
  public:
    LinkLabelWindow(LinkLabel& link, HWND window)
        : ClickableWindow(link, window), link_(link), keys_(*this) {}

    void changed(Property property) override;
    void drawItem(const DRAWITEMSTRUCT& item) override;

  protected:
    // A double click, as many make it on a link, opens it once.
    [[nodiscard]] bool isClick(WORD code) const noexcept override { return code == BN_CLICKED; }

  private:
    void fitResolution() override;

    LinkLabel& link_;
    KeyListener keys_;
    GdiHandle<HFONT> font_;
};

} // namespace tarnwick
