#include "reference/system_characters.hpp"

#include "require.hpp"

#include <iconv.h>

#include <array>
#include <clocale>
#include <cstddef>
#include <cwctype>

namespace tarnwick::reference {
namespace {

// Between two encodings, one character at a time.
class Conversion {
  public:
    Conversion(const char* to, const char* from) : handle_(iconv_open(to, from)) {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): how iconv says that it has failed
        require(handle_ != reinterpret_cast<iconv_t>(-1), "the system knows the encoding");
    }
    Conversion(const Conversion&) = delete;
    Conversion(Conversion&&) = delete;
    Conversion& operator=(const Conversion&) = delete;
    Conversion& operator=(Conversion&&) = delete;
    ~Conversion() { iconv_close(handle_); }

    template <typename To, typename From>
    [[nodiscard]] std::optional<To> of(From character) const {
        To result{};
        char* in = reinterpret_cast<char*>(&character);
        char* out = reinterpret_cast<char*>(&result);
        std::size_t inLeft = sizeof character;
        std::size_t outLeft = sizeof result;
        const auto replaced = iconv(handle_, &in, &inLeft, &out, &outLeft);
        if (replaced != 0 || inLeft != 0 || outLeft != 0) {
            iconv(handle_, nullptr, nullptr, nullptr, nullptr); // forgets the failure
            return std::nullopt;
        }
        return result;
    }

  private:
    iconv_t handle_;
};

struct Tables {
    std::array<char, 256> upper{};
    std::array<std::optional<char>, 256> in437{};
};

Tables systemTables() {
    require(std::setlocale(LC_CTYPE, "C.UTF-8") != nullptr, "the system has a locale of Unicode");
    const Conversion toWide("WCHAR_T", "CP1252");
    const Conversion fromWide("CP1252", "WCHAR_T");
    const Conversion to437("CP437", "CP1252");
    Tables tables;
    for (std::size_t code = 0; code < tables.upper.size(); ++code) {
        const auto character = static_cast<char>(code);
        tables.upper.at(code) = character;
        tables.in437.at(code) = to437.of<char>(character);
        if (const auto wide = toWide.of<wchar_t>(character)) {
            const auto upper = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(*wide)));
            tables.upper.at(code) = fromWide.of<char>(upper).value_or(character);
        }
    }
    return tables;
}

const Tables& tables() {
    static const Tables known = systemTables();
    return known;
}

} // namespace

std::string upperCase(std::string_view text) {
    std::string result;
    for (const char character : text) {
        result += tables().upper.at(static_cast<unsigned char>(character));
    }
    return result;
}

std::optional<std::string> inCodePage437(std::string_view text) {
    std::string result;
    for (const char character : text) {
        const auto converted = tables().in437.at(static_cast<unsigned char>(character));
        if (!converted) {
            return std::nullopt;
        }
        result += *converted;
    }
    return result;
}

} // namespace tarnwick::reference
