#include "platform/posix/to_utf8.hpp"

#include "platform/code_page.hpp"
#include "platform/posix/errors.hpp"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace tarnwick {
namespace {

bool isUtf8(std::string_view text) {
    const CodePage utf8(CodePage::utf8);
    while (!text.empty()) {
        const auto length = utf8.lengthOfFirst(text);
        if (!utf8.isCharacter(text.substr(0, length))) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

// Owns a conversion of the system's.
class Conversion {
  public:
    explicit Conversion(unsigned codePage)
        : name_(codePage == CodePage::utf8 ? "UTF-8" : "CP" + std::to_string(codePage)),
          conversion_(::iconv_open("UTF-8", name_.c_str())) {
        if (conversion_ == none()) {
            throw RunTimeError(ErrorNumber::InvalidFileFormat,
                               "Code page " + std::to_string(codePage) + " is not known here");
        }
    }
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;
    Conversion(Conversion&&) = delete;
    Conversion& operator=(Conversion&&) = delete;
    ~Conversion() { ::iconv_close(conversion_); }

    // Takes from the front of `bytes` what it can convert; false where something is left that is no
    // character.
    bool convert(std::string_view& bytes, std::string& text) const {
        std::array<char, 4096> block; // NOLINT(*-member-init): filled below
        while (!bytes.empty()) {
            char* from = const_cast<char*>(bytes.data()); // NOLINT(*-const-cast): it is only read
            std::size_t left = bytes.size();
            char* to = block.data();
            std::size_t room = block.size();
            const bool whole = ::iconv(conversion_, &from, &left, &to, &room) != failed;
            text.append(block.data(), to);
            bytes.remove_prefix(bytes.size() - left);
            if (!whole && errno != E2BIG) {
                return false;
            }
        }
        return true;
    }

  private:
    static constexpr auto failed = static_cast<std::size_t>(-1);
    static iconv_t none() {
        return reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr): so it is told
    }

    std::string name_;
    iconv_t conversion_;
};

std::string hexadecimal(char byte) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto code = static_cast<unsigned char>(byte);
    return {digits[code >> 4U], digits[code & 0xFU]};
}

} // namespace

std::string toUtf8(std::string_view bytes, unsigned codePage) {
    if (isUtf8(bytes)) {
        constexpr std::string_view mark = "\xEF\xBB\xBF";
        return std::string(bytes.substr(bytes.starts_with(mark) ? mark.size() : 0));
    }
    const Conversion conversion(codePage);
    std::string text;
    auto rest = bytes;
    if (!conversion.convert(rest, text)) {
        const auto line = std::ranges::count(text, '\n') + 1;
        throw RunTimeError(ErrorNumber::InvalidFileFormat, "The byte " + hexadecimal(rest.front()) +
                                                               " in line " + std::to_string(line) +
                                                               " is no character of code page " +
                                                               std::to_string(codePage));
    }
    return text;
}

} // namespace tarnwick
