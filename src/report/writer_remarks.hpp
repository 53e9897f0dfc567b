#pragma once

#include "platform/files.hpp"
#include "platform/process_lock.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// "Shares 3 and 7 of 8 are still at work.": who else is writing the logs just now, or may be. `me`
// is who asks, as RunRequest::holder.
[[nodiscard]] std::vector<std::string> remarksOnWriters(const Files& files,
                                                        const ProcessLocks& locks,
                                                        const std::string& stateFolder,
                                                        std::string_view me);

} // namespace tarnwick
