#include "platform/whole_file.hpp"

namespace tarnwick {

std::string contentOf(InputFile& file) {
    std::string content;
    std::string block(16UZ * 1024, '\0');
    while (const auto count = file.read(block)) {
        content.append(block, 0, count);
    }
    return content;
}

} // namespace tarnwick
