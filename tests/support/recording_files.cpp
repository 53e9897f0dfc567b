#include "support/recording_files.hpp"

#include <algorithm>
#include <ostream>
#include <utility>

namespace tarnwick {

class RecordingFiles::Log : public Observer {
  public:
    void beforeCall(FileOperation operation, std::string_view path) override {
        calls.push_back({.operation = operation, .path = std::string(path)});
    }

    std::vector<Call> calls;
};

std::ostream& operator<<(std::ostream& out, const RecordingFiles::Call& call) {
    return out << call.operation << ' ' << call.path;
}

RecordingFiles::RecordingFiles(Files& files) : RecordingFiles(files, std::make_shared<Log>()) {}

RecordingFiles::RecordingFiles(Files& files, std::shared_ptr<Log> log)
    : WatchedFiles(files, log), log_(std::move(log)) {}

const std::vector<RecordingFiles::Call>& RecordingFiles::calls() const noexcept {
    return log_->calls;
}

int RecordingFiles::count(FileOperation operation) const {
    return static_cast<int>(std::ranges::count(log_->calls, operation, &Call::operation));
}

int RecordingFiles::count(FileOperation operation, std::string_view path) const {
    return static_cast<int>(
        std::ranges::count(log_->calls, Call{.operation = operation, .path = std::string(path)}));
}

void RecordingFiles::forget() {
    log_->calls.clear();
}

} // namespace tarnwick
