#include "unit/runner/runner_world.hpp"

#include <chrono>
#include <filesystem>
#include <fstream>

namespace tarnwick {

void RunnerWorld::writeHost(const std::string& path, std::string_view text) {
    std::ofstream(path, std::ios::binary) << text;
}

void RunnerWorld::overwriteHost(const std::string& path, std::string_view text) {
    std::fstream(path, std::ios::binary | std::ios::in | std::ios::out) << text;
    std::filesystem::resize_file(path, text.size());
}

void RunnerWorld::makeOlder(std::string_view path, int seconds) {
    const auto host = world.files().hostPath(path);
    std::filesystem::last_write_time(host, std::filesystem::last_write_time(host) -
                                               std::chrono::seconds(seconds));
}

} // namespace tarnwick
