#pragma once

#include "platform/code_page.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// Text without regard to case, as its code page has it: so that a file name is the same name
// however it is written. Where letters are of several bytes, equal texts may differ in length.

[[nodiscard]] std::string upperCase(std::string_view text,
                                    const CodePage& codePage = systemCodePage());
[[nodiscard]] bool equalIgnoringCase(std::string_view left, std::string_view right,
                                     const CodePage& codePage = systemCodePage()) noexcept;

} // namespace tarnwick
