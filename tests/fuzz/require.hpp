#pragma once

#include <cstdlib>
#include <iostream>

namespace tarnwick {

// Ends the program, which a fuzzer and a replay both see, where the rule does not hold.
inline void require(bool holds, const char* rule) {
    if (!holds) {
        std::cerr << "broken: " << rule << '\n';
        std::abort();
    }
}

} // namespace tarnwick
