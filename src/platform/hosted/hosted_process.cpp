#include "platform/hosted/hosted_process.hpp"

#include <cstdlib>

namespace tarnwick {

std::string HostedProcess::environmentVariable(std::string_view name) const {
    const char* value = std::getenv(std::string(name).c_str()); // NOLINT(concurrency-mt-unsafe)
    return value == nullptr ? std::string() : std::string(value);
}

} // namespace tarnwick
