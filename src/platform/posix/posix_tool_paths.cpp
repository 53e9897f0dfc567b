#include "platform/posix/posix_tool_paths.hpp"

namespace tarnwick {

std::string PosixToolPaths::toolPath(std::string_view path) const {
    return paths_.hostPath(path);
}

} // namespace tarnwick
