#pragma once

#include "support/watched_files.hpp"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// Forwards every call and remembers it.
class RecordingFiles : public WatchedFiles {
  public:
    struct Call {
        FileOperation operation = FileOperation::CanListFolder;
        std::string path; // the call's first path; that of the open file for Read to Close

        bool operator==(const Call&) const = default;
        friend std::ostream& operator<<(std::ostream& out, const Call& call);
    };

    // Refers to `files`, which must outlive it.
    explicit RecordingFiles(Files& files);

    [[nodiscard]] const std::vector<Call>& calls() const noexcept;
    [[nodiscard]] int count(FileOperation operation) const;
    [[nodiscard]] int count(FileOperation operation, std::string_view path) const;
    void forget();

  private:
    class Log;
    RecordingFiles(Files& files, std::shared_ptr<Log> log);

    std::shared_ptr<Log> log_;
};

} // namespace tarnwick
