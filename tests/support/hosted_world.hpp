#pragma once

#include "support/hosted_files.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {

// A folder of the build machine, held as long as this object and removed with all it contains.
class TemporaryFolder {
  public:
    // In memory, where this machine has room for files there: what a program asks to be put on the
    // medium need not wait for a disk. Nothing is started from there: many systems forbid it.
    enum class Place : std::uint8_t { OnDisk, InMemory };

    explicit TemporaryFolder(Place place = Place::OnDisk);
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    TemporaryFolder(TemporaryFolder&&) = delete;
    TemporaryFolder& operator=(TemporaryFolder&&) = delete;
    ~TemporaryFolder();

    [[nodiscard]] const std::string& hostPath() const noexcept { return hostPath_; }

  private:
    std::string hostPath_;
};

// A machine of its own for one test: an empty drive C:, to begin with.
class HostedWorld {
  public:
    explicit HostedWorld(std::string_view currentFolder = R"(C:\)",
                         TemporaryFolder::Place place = TemporaryFolder::Place::InMemory);

    [[nodiscard]] HostedFiles& files() noexcept { return files_; }
    [[nodiscard]] const HostedFiles& files() const noexcept { return files_; }

    // Makes the file, and its folders where they are missing.
    void write(std::string_view path, std::string_view bytes);
    [[nodiscard]] std::string read(std::string_view path) const;
    // Whether there is a file or folder of that name, hidden or not.
    [[nodiscard]] bool exists(std::string_view path) const;

    // Makes the folder and those above it; nothing when it is there already.
    void makeFolder(std::string_view path);
    // Makes an empty drive, such as 'D'.
    void makeDrive(char letter);
    // Makes an empty share, such as "\\server\share".
    void makeShare(std::string_view share);

    // Makes it a hidden or system file or folder: the hosted file system makes no difference.
    void hide(std::string_view path);
    void makeReadOnly(std::string_view path);
    void makeUnlistable(std::string_view folder);

    // Where drives and shares lie on the build machine.
    [[nodiscard]] const std::string& drivesRoot() const noexcept { return root_.hostPath(); }

  private:
    TemporaryFolder root_;
    HostedFiles files_;
};

} // namespace tarnwick
