#include "support/file_operation.hpp"

#include <array>
#include <cstddef>
#include <ostream>

namespace tarnwick {

std::string_view nameOf(FileOperation operation) noexcept {
    constexpr std::array<std::string_view, 20> names{
        "canListFolder", "firstNormalFile", "listFiles",      "listFolders", "drives",
        "currentFolder", "shortPath",       "openForReading", "create",      "createNew",
        "append",        "remove",          "createFolder",   "moveOver",    "replace",
        "read",          "write",           "drain",          "flush",       "close"};
    return names[static_cast<std::size_t>(operation)];
}

std::ostream& operator<<(std::ostream& out, FileOperation operation) {
    return out << nameOf(operation);
}

} // namespace tarnwick
