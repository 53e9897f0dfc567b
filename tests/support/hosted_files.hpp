#pragma once

#include "platform/posix/file_descriptor.hpp"
#include "platform/posix/posix_files.hpp"

namespace tarnwick {

// The files of the build machine as Windows would have them, for tests: a folder's hidden and
// system files are those named, one a line, in its file ".hidden", which is never shown itself; and
// every open file is held against removal, one that is written against a second writer; no two
// names in a folder differ only in case, as far as they are made here; and every drive is a volume
// of its own. The locks
// are advisory ones, on two bytes far behind any content.
class HostedFiles final : public PosixFiles {
  public:
    using PosixFiles::PosixFiles;

    [[nodiscard]] std::string firstNormalFile(std::string_view path) const override;
    [[nodiscard]] Listing listFiles(std::string_view folder,
                                    std::string_view patterns) const override;
    [[nodiscard]] Listing listFolders(std::string_view folder) const override;
    [[nodiscard]] std::unique_ptr<InputFile> openForReading(std::string_view path) const override;
    [[nodiscard]] std::unique_ptr<OutputFile> create(std::string_view path) override;
    [[nodiscard]] std::unique_ptr<OutputFile> createNew(std::string_view path) override;
    [[nodiscard]] std::unique_ptr<OutputFile> append(std::string_view path) override;
    void remove(std::string_view path) override;
    void moveOver(std::string_view from, std::string_view to) override;
    void replace(std::string_view from, std::string_view to) override;

    // Keeps the file to itself as long as it is open: nobody can open it. Raises 70.
    [[nodiscard]] FileDescriptor openExclusively(std::string_view path) const;

  private:
    [[nodiscard]] FileDescriptor openToWrite(std::string_view path) const;
    void requireNotInUse(std::string_view path) const;
    void requireOneVolume(std::string_view from, std::string_view to) const;
};

} // namespace tarnwick
