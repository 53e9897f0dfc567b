#pragma once

#include <windows.h>

#include <string>

namespace tarnwick {

// A symbol font of that family, for this process alone and as long as it lives. It has two
// pictures: 0xFE is a box as high as its letters, 0xA8 one of half that height. Both are as wide as
// letters are high, and stand on one line.
class SymbolFont {
  public:
    explicit SymbolFont(const std::string& family);
    SymbolFont(const SymbolFont&) = delete;
    SymbolFont& operator=(const SymbolFont&) = delete;
    ~SymbolFont();

    // Whether the system has taken it.
    [[nodiscard]] bool installed() const noexcept { return installed_; }

  private:
    std::wstring file_;
    bool installed_;
};

} // namespace tarnwick
