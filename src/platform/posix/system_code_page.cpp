#include "platform/code_page.hpp"
#include "platform/posix/unicode_letters.hpp"

namespace tarnwick {

const CodePage& systemCodePage() noexcept {
    static const CodePage page(capitalOf);
    return page;
}

} // namespace tarnwick
