#include "common/one_step_file.hpp"

#include "platform/run_time_error.hpp"

#include <string>

namespace tarnwick {
namespace {

void writeThrough(Files& files, std::string_view path, std::string_view content) {
    const auto file = files.create(path);
    file->write(content);
    file->flush();
    file->close();
}

} // namespace

void writeInOneStep(Files& files, std::string_view path, std::string_view content) {
    const std::string beside = std::string(path) + ".tarnwick-new";
    try {
        writeThrough(files, beside, content);
        files.moveOver(beside, path);
    } catch (...) {
        removeQuietly(files, beside);
        throw;
    }
}

void removeQuietly(Files& files, std::string_view path) {
    try {
        files.remove(path);
    } catch (const RunTimeError&) {
        return; // nothing is there, or nothing can be done about it
    }
}

} // namespace tarnwick
