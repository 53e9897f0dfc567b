#include "platform/code_page.hpp"

namespace tarnwick {

const CodePage& systemCodePage() noexcept {
    static const CodePage page(CodePage::utf8);
    return page;
}

} // namespace tarnwick
