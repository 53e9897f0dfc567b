#include "platform/windows_tool_paths.hpp"

#include "platform/run_time_error.hpp"
#include "platform/windows_path.hpp"

namespace tarnwick {

std::string WindowsToolPaths::toolPath(std::string_view path) const {
    if (!isPossiblePath(path)) {
        throw RunTimeError(ErrorNumber::BadFileName);
    }
    return std::string(path);
}

} // namespace tarnwick
