#include "runner/checked_log.hpp"

#include "common/line_reader.hpp"
#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "platform/run_time_error.hpp"
#include "runner/log_fields.hpp"

namespace tarnwick {
namespace {

std::string titleLine(const LogKind& kind) {
    return std::string(kind.title) + std::to_string(kind.version) + "\n";
}

std::string besideLog(const std::string& path) {
    return path + ".new";
}

} // namespace

LogFaults readCheckedLog(const Files& files, std::string_view path, const LogKind& kind,
                         const std::function<bool(std::string_view line)>& take) {
    LogFaults faults;
    if (!FileExists(files, path)) {
        return faults;
    }
    const auto file = files.openForReading(path);
    LineReader lines(*file, LineEnds::Any, longestLogLine);
    const std::string title(lines.next().value_or(""));
    faults.torn = !checkLogTitle(title, kind.title, kind.version, kind.name, path);
    while (const auto line = lines.next()) {
        if (line->empty()) { // it stands between two runs
            continue;
        }
        // What was taken for a torn end was none, when something follows it.
        faults.damaged += faults.torn ? 1 : 0;
        faults.torn = !take(*line);
    }
    return faults;
}

bool isThatLog(const Files& files, std::string_view path, const LogKind& kind) {
    if (!FileExists(files, path)) {
        return true;
    }
    const auto file = files.openForReading(path);
    const std::string title(LineReader(*file, LineEnds::Any, longestLogLine).next().value_or(""));
    try {
        static_cast<void>(checkLogTitle(title, kind.title, kind.version, kind.name, path));
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

void makeLogAnew(Files& files, const std::string& path, const LogKind& kind,
                 const std::function<bool(std::string_view line)>& keep) {
    const std::string beside = besideLog(path);
    auto file = createAnew(files, beside);
    try {
        file->write(titleLine(kind));
        readCheckedLog(files, path, kind, [&](std::string_view line) {
            if (keep(line)) {
                file->write(line);
                file->write("\n");
            }
            return true;
        });
        file->flush();
        file->close();
        files.moveOver(beside, path);
    } catch (const RunTimeError& error) {
        file.reset();
        removeQuietly(files, beside);
        if (!error.is(ErrorNumber::PermissionDenied)) {
            throw;
        }
    }
}

LogEnd::LogEnd(Files& files, const std::string& path, const LogKind& kind) {
    removeQuietly(files, besideLog(path)); // of a run that was killed
    if (!FileExists(files, path)) {
        writeInOneStep(files, path, titleLine(kind));
    }
    file_ = files.append(path);
    file_->write("\n"); // also ends a line that was cut short just before its own end
    file_->drain();
}

void LogEnd::write(std::string_view line) {
    file_->write(line);
    file_->drain();
}

void LogEnd::close() {
    file_->flush();
    file_->close();
}

} // namespace tarnwick
