#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarnwick {

// Which bytes of a text belong together to one character, and which letters differ only in case. A
// plain value; functions that look into names and paths take it, and use the system's otherwise.
class CodePage {
  public:
    static constexpr unsigned utf8 = 65001;
    static constexpr unsigned western = 1252;

    // The capital of each byte that is a letter, else the byte itself.
    using Capitals = std::array<char, 256>;

    // By its number. In UTF-8 and in those of two-byte characters (932, 936, 949, 950) only the
    // letters of ASCII have another case; every other one has single bytes and the letters of 1252.
    explicit CodePage(unsigned number) noexcept;

    // One of single bytes, with letters of its own.
    explicit CodePage(const Capitals& capitals) noexcept : upper_(capitals) {}

    // UTF-8 with the letters of all scripts: `capitalOf` gives the capital of a character of
    // Unicode, else the character itself. What lies beyond ASCII never becomes a letter of ASCII,
    // as on Windows: a dotless i is no other way to write an I. A capital may be longer or shorter
    // than its letter.
    using CapitalOf = char32_t (*)(char32_t) noexcept;
    explicit CodePage(CapitalOf capitalOf) noexcept;

    // How many bytes the first character of `text`, which is not empty, has. A byte that begins
    // none is taken for one by itself.
    [[nodiscard]] std::size_t lengthOfFirst(std::string_view text) const noexcept;

    // Whether those bytes, as lengthOfFirst gives them, are a character at all.
    [[nodiscard]] bool isCharacter(std::string_view bytes) const noexcept;

    // Whether "\" may be the second byte of a character, as other bytes of ASCII may.
    [[nodiscard]] bool hasTrailBytes() const noexcept { return kind_ == Kind::DoubleByte; }
    [[nodiscard]] bool isUtf8() const noexcept { return kind_ == Kind::Utf8; }

    // Whether a text is upper-cased byte by byte.
    [[nodiscard]] bool foldsByBytes() const noexcept {
        return kind_ != Kind::DoubleByte && capitalOf_ == nullptr;
    }

    [[nodiscard]] char upperCase(char character) const noexcept {
        return upper_[static_cast<unsigned char>(character)];
    }

    // Takes the first character from the front of `text`, which is not empty: upper-cased, its
    // bytes as one number.
    [[nodiscard]] std::uint32_t takeUpperCased(std::string_view& text) const noexcept {
        if (static_cast<unsigned char>(text.front()) >= 0x80) {
            return takeBeyondAscii(text);
        }
        const char character = upperCase(text.front());
        text.remove_prefix(1);
        return static_cast<unsigned char>(character);
    }

    // As the members of string_view, for `characters` of ASCII that are not parts of others.
    [[nodiscard]] std::size_t findFirstOf(std::string_view text,
                                          std::string_view characters) const noexcept;
    [[nodiscard]] std::size_t findLastOf(std::string_view text,
                                         std::string_view characters) const noexcept;

  private:
    [[nodiscard]] std::uint32_t takeBeyondAscii(std::string_view& text) const noexcept;

    enum class Kind : std::uint8_t { SingleByte, DoubleByte, Utf8 };

    Kind kind_ = Kind::SingleByte;
    unsigned char firstLead_ = 0x81; // of DoubleByte; 932 has single bytes between its leads
    unsigned char lastLead_ = 0xFE;
    bool hasKatakana_ = false;
    Capitals upper_{};
    CapitalOf capitalOf_ = nullptr; // of Utf8, for what lies beyond ASCII
};

// The one of the system that the program runs on: each platform defines it.
[[nodiscard]] const CodePage& systemCodePage() noexcept;

} // namespace tarnwick
