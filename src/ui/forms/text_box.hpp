#pragma once

#include "ui/forms/control.hpp"
#include "ui/forms/font.hpp"

#include <functional>
#include <string>
#include <string_view>

namespace tarnwick {

// A field to type into, of one line or of several (divided by CR LF). Positions count 8-bit
// characters from 0.
class TextBox final : public Control {
  public:
    using Control::Control;

    [[nodiscard]] const std::string& text() const noexcept { return text_; }
    // The caret goes to the front and nothing is selected.
    void setText(std::string_view text);

    [[nodiscard]] int selStart() const noexcept { return selStart_; }
    [[nodiscard]] int selLength() const noexcept { return selLength_; }
    // What lies outside the text is cut off.
    void select(int start, int length);
    void selectAll() { select(0, static_cast<int>(text_.size())); }

    // Read-only text can be selected and copied, but not typed over.
    [[nodiscard]] bool readOnly() const noexcept { return readOnly_; }
    void setReadOnly(bool readOnly) { set(readOnly_, readOnly, Property::ReadOnly); }

    [[nodiscard]] const Font& font() const noexcept { return font_; }
    void setFont(Font font) { set(font_, std::move(font), Property::Font); }

    // A grey text that says what to type, shown while the field is empty.
    [[nodiscard]] const std::string& hint() const noexcept { return hint_; }
    void setHint(std::string_view hint) { set(hint_, hint, Property::Hint); }

    // The keys that lead through a grid (Enter, Escape, Up, Down) go to KeyDown alone, instead of
    // to the form's buttons or to the caret: for a field that floats over a grid.
    void setLeavesKeysToGrid(bool leaves) noexcept { keysOfGrid_ = leaves; }
    [[nodiscard]] bool wantsKey(int keyCode) const override;

    // The user typed or pasted `typed` over what is selected; the caret goes behind it.
    void userTyped(std::string_view typed);
    // The user selected this; fires nothing.
    void userSelected(int start, int length);
    // The text is `text` now, by what the user did, and the view shows it already.
    void userChangedText(std::string_view text, int start, int length);
    void userPressedKey(int keyCode) override;
    void userReleasedKey(int keyCode);

    std::function<void()> Change; // after the text has changed
    std::function<void(int keyCode)> KeyDown;
    std::function<void(int keyCode)> KeyUp;

  private:
    void clampSelection(int start, int length) noexcept;

    std::string text_;
    std::string hint_;
    Font font_;
    int selStart_ = 0;
    int selLength_ = 0;
    bool readOnly_ = false;
    bool keysOfGrid_ = false;
};

} // namespace tarnwick
