#include "platform/code_page.hpp"

#include <windows.h>

namespace tarnwick {

const CodePage& systemCodePage() noexcept {
    static const CodePage page(GetACP());
    return page;
}

} // namespace tarnwick
