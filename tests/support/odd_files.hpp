#pragma once

#include "support/hosted_world.hpp"

#include <algorithm>
#include <fstream>
#include <string>

namespace tarnwick {

// Makes a file behind the interfaces' back, so that its name can be one that Windows does not have.
inline void putOddFile(const HostedWorld& world, char drive, std::string folder,
                       const std::string& name) {
    std::ranges::replace(folder, '\\', '/');
    std::ofstream(world.drivesRoot() + '/' + drive + '/' + folder + '/' + name) << "odd";
}

} // namespace tarnwick
