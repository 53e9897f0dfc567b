#include "common/trap.hpp"

#include <exception>
#include <new>

namespace tarnwick {

ErrorRecord currentError() {
    try {
        throw;
    } catch (const RunTimeError& error) {
        return error.record();
    } catch (const std::bad_alloc&) {
        return RunTimeError(ErrorNumber::OutOfMemory).record();
    } catch (const std::exception& error) {
        ErrorRecord record = RunTimeError(ErrorNumber::InternalError).record();
        record.description.append(": ").append(error.what());
        return record;
    } catch (...) {
        return RunTimeError(ErrorNumber::InternalError).record();
    }
}

void reportCurrentError(Desktop& desktop, std::string_view caller,
                        std::string_view procedure) noexcept {
    try {
        ReportError(desktop, currentError(), caller, procedure);
    } catch (...) {
        return; // no memory even to say so
    }
}

} // namespace tarnwick
