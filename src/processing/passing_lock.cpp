#include "processing/passing_lock.hpp"

#include "platform/run_time_error.hpp"

namespace tarnwick {
namespace {

constexpr double patience = 5; // seconds
constexpr double betweenTries = 0.25;

// The system tells some locks, such as that of a file which is being deleted, as a missing right.
bool canPass(const RunTimeError& error) {
    return error.is(ErrorNumber::PermissionDenied) || error.is(ErrorNumber::PathFileAccess);
}

} // namespace

bool outlastPassingLock(const Clock& clock, PendingEvents& events, const StopRequest& stop,
                        const std::function<void()>& change) {
    const double end = clock.steadySeconds() + patience;
    for (;;) {
        try {
            change();
            return true;
        } catch (const RunTimeError& error) {
            if (!canPass(error) || clock.steadySeconds() >= end) {
                throw;
            }
        }
        pause(clock, events, betweenTries, stop);
        if (stop.cancelled) {
            return false;
        }
    }
}

} // namespace tarnwick
