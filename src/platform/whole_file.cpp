#include "platform/whole_file.hpp"

#include <algorithm>

namespace tarnwick {

std::string contentOf(InputFile& file, std::size_t most) {
    std::string content;
    std::string block(16UZ * 1024, '\0');
    while (content.size() < most) {
        const auto count = file.read(block);
        if (count == 0) {
            break;
        }
        content.append(block, 0, std::min(count, most - content.size()));
    }
    return content;
}

} // namespace tarnwick
