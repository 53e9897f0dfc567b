#pragma once

#include "platform/clock.hpp"
#include "processing/pause.hpp"

#include <functional>

namespace tarnwick {

// Does `change`, which writes or deletes a file, and does it again for up to five seconds while
// another program keeps the file to itself: what looks at every new file, a virus scanner or an
// indexer, is done with it in a moment. Window events run meanwhile.
// False where a stop is asked for before the change was made. Raises what `change` raises where
// that is no lock (neither 70 nor 75), or where the lock outlasts the five seconds.
[[nodiscard]] bool outlastPassingLock(const Clock& clock, PendingEvents& events,
                                      const StopRequest& stop, const std::function<void()>& change);

} // namespace tarnwick
