#pragma once

namespace tarnwick {

// All measures of a form are in twips: 1440 of them are an inch, whatever the screen's resolution.

struct Size {
    int width = 0;
    int height = 0;

    bool operator==(const Size&) const = default;
};

struct Bounds {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Bounds&) const = default;
};

inline constexpr int twipsPerInch = 1440;

// A window is counted as its content plus a frame and title of this size, whatever the system's
// theme draws around it: so a layout that counts from the window's size is the same everywhere.
inline constexpr Size windowFrame{.width = 120, .height = 405};

// Converts at `dpi` pixels per inch (more than 0), to the nearest.
[[nodiscard]] constexpr int toPixels(int twips, int dpi) noexcept {
    const int half = twips < 0 ? -twipsPerInch / 2 : twipsPerInch / 2;
    return (twips * dpi + half) / twipsPerInch;
}
[[nodiscard]] constexpr int toTwips(int pixels, int dpi) noexcept {
    const int half = pixels < 0 ? -dpi / 2 : dpi / 2;
    return (pixels * twipsPerInch + half) / dpi;
}

} // namespace tarnwick
