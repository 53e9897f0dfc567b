#include "common/one_step_file.hpp"

#include "platform/run_time_error.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace tarnwick {
namespace {

void writeThrough(Files& files, std::string_view path, std::string_view content) {
    const auto file = files.create(path);
    file->write(content);
    file->flush();
    file->close();
}

void copyFile(Files& files, std::string_view from, std::string_view to) {
    constexpr std::size_t blockSize = 256UZ * 1024;
    const auto source = files.openForReading(from);
    const auto copy = files.create(to);
    std::vector<char> block(blockSize);
    while (const auto count = source->read(block)) {
        copy->write({block.data(), count});
    }
    copy->close();
}

// Whether the file was moved; not where the two paths lie on different volumes.
bool moveOnOneVolume(Files& files, std::string_view from, std::string_view to) {
    try {
        files.moveOver(from, to);
        return true;
    } catch (const RunTimeError& error) {
        if (!error.is(ErrorNumber::DifferentDrive)) {
            throw;
        }
        return false;
    }
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

void moveInOneStep(Files& files, std::string_view from, std::string_view to,
                   std::string_view beside) {
    if (moveOnOneVolume(files, from, to)) {
        return;
    }
    try {
        copyFile(files, from, beside);
        files.moveOver(beside, to);
    } catch (...) {
        removeQuietly(files, beside);
        throw;
    }
    files.remove(from);
}

void removeQuietly(Files& files, std::string_view path) {
    try {
        files.remove(path);
    } catch (const RunTimeError&) {
        return; // nothing is there, or nothing can be done about it
    }
}

} // namespace tarnwick
