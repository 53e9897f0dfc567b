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

    // How many bytes the first character of `text`, which is not empty, has. A byte that begins
    // none is taken for one by itself.
    [[nodiscard]] std::size_t lengthOfFirst(std::string_view text) const noexcept;

    // Whether those bytes, as lengthOfFirst gives them, are a character at all.
    [[nodiscard]] bool isCharacter(std::string_view bytes) const noexcept;

    // Whether "\" may be the second byte of a character, as other bytes of ASCII may.
    [[nodiscard]] bool hasTrailBytes() const noexcept { return kind_ == Kind::DoubleByte; }
    [[nodiscard]] bool isUtf8() const noexcept { return kind_ == Kind::Utf8; }

    [[nodiscard]] char upperCase(char character) const noexcept {
        return upper_[static_cast<unsigned char>(character)];
    }

    // Takes the first character from the front of `text`, which is not empty: upper-cased, its
    // bytes as one number.
    [[nodiscard]] std::uint32_t takeUpperCased(std::string_view& text) const noexcept;

    // As the members of string_view, for `characters` of ASCII that are not parts of others.
    [[nodiscard]] std::size_t findFirstOf(std::string_view text,
                                          std::string_view characters) const noexcept;
    [[nodiscard]] std::size_t findLastOf(std::string_view text,
                                         std::string_view characters) const noexcept;

  private:
    enum class Kind : std::uint8_t { SingleByte, DoubleByte, Utf8 };

    Kind kind_ = Kind::SingleByte;
    unsigned char firstLead_ = 0x81; // of DoubleByte; 932 has single bytes between its leads
    unsigned char lastLead_ = 0xFE;
    bool hasKatakana_ = false;
    Capitals upper_{};
};

// The one of the system that the program runs on: each platform defines it.
[[nodiscard]] const CodePage& systemCodePage() noexcept;

} // namespace tarnwick
