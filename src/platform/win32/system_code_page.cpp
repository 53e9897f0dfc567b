#include "platform/code_page.hpp"
#include "platform/win32/system_text.hpp"

#include <windows.h>

#include <string>

namespace tarnwick {
namespace {

// As the system has it: the letters of a Cyrillic or Central European code page are not those of
// the western one. A letter whose capital has no place there has none.
char capitalOf(char character) {
    std::wstring text = toWide(std::string(1, character));
    CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
    const auto capital = toSystemText(text);
    return capital && capital->size() == 1 ? capital->front() : character;
}

CodePage codePageOfSystem() {
    const CodePage page(GetACP());
    if (page.isUtf8() || page.hasTrailBytes()) {
        return page;
    }
    CodePage::Capitals capitals{};
    for (unsigned code = 0; code < capitals.size(); ++code) {
        capitals.at(code) = capitalOf(static_cast<char>(code));
    }
    return CodePage(capitals);
}

} // namespace

const CodePage& systemCodePage() noexcept {
    static const CodePage page = codePageOfSystem();
    return page;
}

} // namespace tarnwick
