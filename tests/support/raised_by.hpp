#pragma once

#include "platform/run_time_error.hpp"

#include <cstdint>

namespace tarnwick {

// The number of the error that `call` raises; 0 when it raises none.
template <typename Call>
std::int32_t raisedBy(Call&& call) {
    try {
        static_cast<void>(static_cast<Call&&>(call)());
    } catch (const RunTimeError& error) {
        return error.record().number;
    }
    return 0;
}

} // namespace tarnwick
