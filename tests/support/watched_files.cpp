#include "support/watched_files.hpp"

#include "platform/run_time_error.hpp"

#include <utility>

namespace tarnwick {
namespace {

using Observer = WatchedFiles::Observer;

class WatchedInput : public InputFile {
  public:
    WatchedInput(std::unique_ptr<InputFile> file, std::shared_ptr<Observer> observer,
                 std::string_view path)
        : file_(std::move(file)), observer_(std::move(observer)), path_(path) {}

    std::size_t read(std::span<char> buffer) override {
        observer_->beforeCall(FileOperation::Read, path_);
        return file_->read(buffer);
    }

  private:
    std::unique_ptr<InputFile> file_;
    std::shared_ptr<Observer> observer_;
    std::string path_;
};

class WatchedOutput : public OutputFile {
  public:
    WatchedOutput(std::unique_ptr<OutputFile> file, std::shared_ptr<Observer> observer,
                  std::string_view path)
        : file_(std::move(file)), observer_(std::move(observer)), path_(path) {}

    void write(std::string_view bytes) override {
        observer_->beforeCall(FileOperation::Write, path_);
        waiting_ += bytes;
        pass();
    }
    void drain() override {
        observer_->beforeCall(FileOperation::Drain, path_);
        pass();
        file_->drain();
    }
    void flush() override {
        observer_->beforeCall(FileOperation::Flush, path_);
        pass();
        file_->flush();
    }
    void close() override {
        if (std::exchange(closed_, true)) {
            return;
        }
        try {
            observer_->beforeCall(FileOperation::Close, path_);
            pass();
        } catch (const RunTimeError&) {
            file_->close();
            throw;
        }
        file_->close();
    }

  private:
    // What there is no room for is tried again with the next call, as by every file that gathers.
    void pass() {
        if (waiting_.empty()) {
            return;
        }
        const auto room = observer_->room(waiting_.size());
        file_->write(waiting_.substr(0, room));
        waiting_.erase(0, room);
        if (!waiting_.empty()) {
            observer_->afterShortWrite();
        }
    }

    std::unique_ptr<OutputFile> file_;
    std::shared_ptr<Observer> observer_;
    std::string path_;
    std::string waiting_;
    bool closed_ = false;
};

} // namespace

bool WatchedFiles::canListFolder(std::string_view folder) const {
    try {
        observer_->beforeCall(FileOperation::CanListFolder, folder);
    } catch (const RunTimeError&) {
        return false; // it never raises
    }
    return ForwardingFiles::canListFolder(folder);
}

std::string WatchedFiles::firstNormalFile(std::string_view path) const {
    observer_->beforeCall(FileOperation::FirstNormalFile, path);
    return ForwardingFiles::firstNormalFile(path);
}

Listing WatchedFiles::listFiles(std::string_view folder, std::string_view patterns) const {
    observer_->beforeCall(FileOperation::ListFiles, folder);
    return ForwardingFiles::listFiles(folder, patterns);
}

Listing WatchedFiles::listFolders(std::string_view folder) const {
    observer_->beforeCall(FileOperation::ListFolders, folder);
    return ForwardingFiles::listFolders(folder);
}

std::vector<std::string> WatchedFiles::drives() const {
    observer_->beforeCall(FileOperation::Drives, {});
    return ForwardingFiles::drives();
}

std::string WatchedFiles::currentFolder() const {
    observer_->beforeCall(FileOperation::CurrentFolder, {});
    return ForwardingFiles::currentFolder();
}

std::string WatchedFiles::shortPath(std::string_view path) const {
    observer_->beforeCall(FileOperation::ShortPath, path);
    return ForwardingFiles::shortPath(path);
}

std::unique_ptr<InputFile> WatchedFiles::openForReading(std::string_view path) const {
    observer_->beforeCall(FileOperation::OpenForReading, path);
    return std::make_unique<WatchedInput>(ForwardingFiles::openForReading(path), observer_, path);
}

std::unique_ptr<OutputFile> WatchedFiles::create(std::string_view path) {
    observer_->beforeCall(FileOperation::Create, path);
    return std::make_unique<WatchedOutput>(ForwardingFiles::create(path), observer_, path);
}

std::unique_ptr<OutputFile> WatchedFiles::createNew(std::string_view path) {
    observer_->beforeCall(FileOperation::CreateNew, path);
    return std::make_unique<WatchedOutput>(ForwardingFiles::createNew(path), observer_, path);
}

std::unique_ptr<OutputFile> WatchedFiles::append(std::string_view path) {
    observer_->beforeCall(FileOperation::Append, path);
    return std::make_unique<WatchedOutput>(ForwardingFiles::append(path), observer_, path);
}

void WatchedFiles::remove(std::string_view path) {
    observer_->beforeCall(FileOperation::Remove, path);
    ForwardingFiles::remove(path);
}

void WatchedFiles::createFolder(std::string_view path) {
    observer_->beforeCall(FileOperation::CreateFolder, path);
    ForwardingFiles::createFolder(path);
}

void WatchedFiles::moveOver(std::string_view from, std::string_view to) {
    observer_->beforeCall(FileOperation::MoveOver, from);
    ForwardingFiles::moveOver(from, to);
}

void WatchedFiles::replace(std::string_view from, std::string_view to) {
    observer_->beforeCall(FileOperation::Replace, from);
    ForwardingFiles::replace(from, to);
}

} // namespace tarnwick
