#include "platform/code_page.hpp"

namespace tarnwick {

// Tests are about Western European Windows, wherever they run.
const CodePage& systemCodePage() noexcept {
    static const CodePage page(CodePage::western);
    return page;
}

} // namespace tarnwick
