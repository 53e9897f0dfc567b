#pragma once

#include <string>

namespace tarnwick {

// Gives the file `heir` the access list and the attributes (hidden, system, archive, ...) of
// `file`, as far as the system lets this user; what it refuses stays as it is. Nothing where `file`
// is not there. Never raises.
void takeOverAccess(const std::wstring& heir, const std::wstring& file) noexcept;

} // namespace tarnwick
