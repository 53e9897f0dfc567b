#include "platform/posix/unicode_letters.hpp"

#include <clocale>
#include <cwctype>

namespace tarnwick {

char32_t capitalOf(char32_t character) noexcept {
    // Not the user's locale: a name is the same name for everybody. Every system library of today
    // brings this one; where it is missing, only the letters of ASCII have another case.
    static const locale_t everyScript = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return everyScript == nullptr
               ? character
               : static_cast<char32_t>(::towupper_l(static_cast<wint_t>(character), everyScript));
}

} // namespace tarnwick
