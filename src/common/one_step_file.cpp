#include "common/one_step_file.hpp"

#include "platform/run_time_error.hpp"
#include "platform/whole_file.hpp"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarnwick {
namespace {

using WriteContent = std::function<void(OutputFile& file)>;

// `content` must live as long.
WriteContent writerOf(std::string_view content) {
    return [content](OutputFile& file) { file.write(content); };
}

void writeThrough(OutputFile& file, const WriteContent& write) {
    write(file);
    file.flush();
    file.close();
}

// Nothing where the file cannot be opened.
std::optional<std::string> oldContent(const Files& files, std::string_view path) {
    std::unique_ptr<InputFile> file;
    try {
        file = files.openForReading(path);
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
    return contentOf(*file);
}

void putBack(Files& files, std::string_view path, std::string_view old) {
    try {
        writeThrough(*files.create(path), writerOf(old));
    } catch (const RunTimeError&) {
        return; // what went wrong before is what the user must hear of
    }
}

void writeInPlace(Files& files, std::string_view path, const WriteContent& write,
                  std::string_view old) {
    auto file = files.create(path);
    try {
        writeThrough(*file, write);
    } catch (...) {
        file.reset();
        putBack(files, path, old);
        throw;
    }
}

void copyFile(Files& files, std::string_view from, std::string_view to) {
    constexpr std::size_t blockSize = 256UZ * 1024;
    const auto source = files.openForReading(from);
    const auto copy = createAnew(files, to);
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

std::unique_ptr<OutputFile> createAnew(Files& files, std::string_view path) {
    try {
        return files.createNew(path);
    } catch (const RunTimeError& error) {
        if (!error.is(ErrorNumber::FileAlreadyExists)) {
            throw;
        }
    }
    files.remove(path);
    return files.createNew(path);
}

void writeInOneStep(Files& files, std::string_view path, std::string_view content) {
    writeInOneStep(files, path, writerOf(content));
}

void writeInOneStep(Files& files, std::string_view path, const WriteContent& write) {
    const std::string beside = std::string(path) + ".tarnwick-new";
    std::unique_ptr<OutputFile> file;
    try {
        file = createAnew(files, beside);
    } catch (const RunTimeError& error) {
        // A full disk has no room in place either: to try would cost the old content.
        const auto old = error.is(ErrorNumber::DiskFull) ? std::nullopt : oldContent(files, path);
        if (!old) {
            throw;
        }
        writeInPlace(files, path, write, *old);
        return;
    }
    try {
        writeThrough(*file, write);
        files.moveOver(beside, path);
    } catch (...) {
        file.reset();
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
