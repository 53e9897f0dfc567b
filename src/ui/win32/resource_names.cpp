#include "ui/win32/resource_names.hpp"

#include "platform/win32/system_text.hpp"
#include "ui/win32/view_messages.hpp"

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tarnwick {
namespace {

// Goes through the bytes of a resource, and stays at their end once it is there.
class Reader {
  public:
    Reader(const std::byte* bytes, std::size_t size) noexcept : bytes_(bytes), size_(size) {}

    template <typename Number>
    Number next() noexcept {
        Number number{};
        if (at_ + sizeof number <= size_) {
            std::memcpy(&number, bytes_ + at_, sizeof number);
        }
        skip(sizeof number);
        return number;
    }
    void skip(std::size_t count) noexcept { at_ = count < size_ - at_ ? at_ + count : size_; }
    void align() noexcept { skip((sizeof(DWORD) - at_ % sizeof(DWORD)) % sizeof(DWORD)); }

    // Names of controls are ASCII.
    std::string text() {
        std::string result;
        for (auto unit = next<std::uint16_t>(); unit != 0; unit = next<std::uint16_t>()) {
            result += static_cast<char>(unit);
        }
        return result;
    }
    // A text, or a number behind the mark that says so.
    std::string textOrNumber() {
        constexpr std::uint16_t mark = 0xFFFF;
        const std::size_t start = at_;
        if (next<std::uint16_t>() == mark) {
            skip(sizeof(std::uint16_t));
            return {};
        }
        at_ = start;
        return text();
    }

  private:
    const std::byte* bytes_;
    std::size_t size_;
    std::size_t at_ = 0;
};

// Up to the first control; the number of controls.
int readHead(Reader& reader) {
    reader.skip(2 * sizeof(WORD) + 2 * sizeof(DWORD)); // version, help, extended style
    const auto style = reader.next<DWORD>();
    const int controls = reader.next<WORD>();
    reader.skip(4 * sizeof(WORD)); // place and size
    (void)reader.textOrNumber();   // menu
    (void)reader.textOrNumber();   // class
    (void)reader.text();           // title
    if ((style & DS_SETFONT) != 0) {
        reader.skip(3 * sizeof(WORD)); // size, weight, slant and character set
        (void)reader.text();
    }
    return controls;
}

} // namespace

std::map<int, std::string> textsInResource(const std::string& dialog) {
    std::map<int, std::string> texts;
    HRSRC found =
        FindResourceW(nullptr, toWide(dialog).c_str(), pointerIn<LPCWSTR>(5)); // RT_DIALOG
    if (found == nullptr) {
        return texts;
    }
    Reader reader(static_cast<const std::byte*>(LockResource(LoadResource(nullptr, found))),
                  SizeofResource(nullptr, found));
    for (int left = readHead(reader); left > 0; --left) {
        reader.align();
        reader.skip(3 * sizeof(DWORD) + 4 * sizeof(WORD)); // help, styles, place and size
        const auto id = reader.next<DWORD>();
        (void)reader.textOrNumber(); // class
        texts.emplace(static_cast<int>(id), reader.textOrNumber());
        const auto extra = reader.next<WORD>();
        reader.skip(extra);
    }
    return texts;
}

} // namespace tarnwick
