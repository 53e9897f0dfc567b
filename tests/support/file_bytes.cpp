#include "support/file_bytes.hpp"

#include <array>

namespace tarnwick {

std::string bytesOf(const Files& files, std::string_view path) {
    const auto file = files.openForReading(path);
    std::string bytes;
    std::array<char, 4096> block{};
    while (const auto count = file->read(block)) {
        bytes.append(block.data(), count);
    }
    return bytes;
}

void putBytes(Files& files, std::string_view path, std::string_view bytes) {
    const auto file = files.create(path);
    file->write(bytes);
    file->close();
}

} // namespace tarnwick
