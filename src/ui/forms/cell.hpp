#pragma once

#include <string>
#include <variant>

namespace tarnwick {

// Colours that the user's theme decides on.
enum class SystemColour { Window, WindowText, ButtonFace, ButtonText };

struct Rgb {
    unsigned char red = 0;
    unsigned char green = 0;
    unsigned char blue = 0;

    bool operator==(const Rgb&) const = default;
};

using Colour = std::variant<SystemColour, Rgb>;

enum class Alignment { Left, Centre };

// The font whose characters below are a box with and without a tick. Where it is missing, the view
// draws the two as the system's own check boxes.
inline constexpr const char* symbolFont = "Wingdings";
inline constexpr const char* tickedGlyph = "\xFE"; // "þ"
inline constexpr const char* emptyGlyph = "\xA8";  // "¨"

// One cell of a grid.
struct Cell {
    std::string text;
    std::string fontName; // empty: the form's own font
    Alignment alignment = Alignment::Left;
    Colour fore = SystemColour::WindowText;
    Colour back = SystemColour::Window;

    // Whether it shows a box, and whether that is ticked.
    [[nodiscard]] bool showsTick() const { return fontName == symbolFont && text == tickedGlyph; }
    [[nodiscard]] bool showsBox() const {
        return showsTick() || (fontName == symbolFont && text == emptyGlyph);
    }

    bool operator==(const Cell&) const = default;
};

} // namespace tarnwick
