#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace tarnwick {

// A place in dialog units.
struct DialogArea {
    short x = 0;
    short y = 0;
    short width = 0;
    short height = 0;
};

enum class ControlClass : WORD { Button = 0x0080, Edit = 0x0081, Static = 0x0082 };

// A dialog described in memory, in the font of the program's dialog resources: what a resource
// would be in a program, for a library that has none.
class DialogTemplate {
  public:
    DialogTemplate(DWORD style, DialogArea area);

    void add(ControlClass controlClass, DWORD id, DWORD style, DialogArea area,
             std::wstring_view text);

    // Holds until the next change.
    [[nodiscard]] const DLGTEMPLATE* get() const noexcept;

  private:
    void append(std::uint16_t word) { words_.push_back(word); }
    void appendDouble(DWORD value);
    void appendArea(DialogArea area);
    void appendText(std::wstring_view text);

    std::vector<std::uint16_t> words_;
};

} // namespace tarnwick
