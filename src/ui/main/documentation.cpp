#include "ui/main/documentation.hpp"

namespace tarnwick {

std::string_view mpDocumentation() noexcept {
    return TARNWICK_MP_HELP_URL;
}

std::string_view cnsDocumentation() noexcept {
    return TARNWICK_CNS_HELP_URL;
}

} // namespace tarnwick
