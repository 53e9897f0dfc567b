#pragma once

#include "support/file_operation.hpp"
#include "support/forwarding_files.hpp"

#include <cstddef>
#include <memory>

namespace tarnwick {

// Forwards every call, those of the files that it opens included, and tells an observer of each
// before it is made.
class WatchedFiles : public ForwardingFiles {
  public:
    class Observer {
      public:
        virtual ~Observer() = default;
        // `path` is the call's first path; that of the open file for Read to Close. What this
        // raises, the caller gets, and the call is not made; a file that could not be closed is
        // closed all the same.
        virtual void beforeCall(FileOperation operation, std::string_view path) = 0;
        // How many of `length` bytes are to be written; when fewer, `afterShortWrite` must raise.
        virtual std::size_t room(std::size_t length) { return length; }
        virtual void afterShortWrite() {}
    };

    // Refers to `files`, which must outlive it.
    WatchedFiles(Files& files, std::shared_ptr<Observer> observer)
        : ForwardingFiles(files), observer_(std::move(observer)) {}

    [[nodiscard]] bool canListFolder(std::string_view folder) const override;
    [[nodiscard]] std::string firstNormalFile(std::string_view path) const override;
    [[nodiscard]] Listing listFiles(std::string_view folder,
                                    std::string_view patterns) const override;
    [[nodiscard]] Listing listFolders(std::string_view folder) const override;
    [[nodiscard]] std::vector<std::string> drives() const override;
    [[nodiscard]] std::string currentFolder() const override;
    [[nodiscard]] std::string shortPath(std::string_view path) const override;
    [[nodiscard]] std::unique_ptr<InputFile> openForReading(std::string_view path) const override;
    [[nodiscard]] std::unique_ptr<OutputFile> create(std::string_view path) override;
    [[nodiscard]] std::unique_ptr<OutputFile> createNew(std::string_view path) override;
    [[nodiscard]] std::unique_ptr<OutputFile> append(std::string_view path) override;
    void remove(std::string_view path) override;
    void createFolder(std::string_view path) override;
    void moveOver(std::string_view from, std::string_view to) override;
    void replace(std::string_view from, std::string_view to) override;

  private:
    std::shared_ptr<Observer> observer_;
};

} // namespace tarnwick
