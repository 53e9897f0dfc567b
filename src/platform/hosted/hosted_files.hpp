#pragma once

#include "platform/files.hpp"
#include "platform/hosted/drives_root.hpp"
#include "platform/hosted/file_descriptor.hpp"

namespace tarnwick {

// The file system of a POSIX machine, shown as drives and shares below one folder (see
// DrivesRoot). A folder's hidden and system files are those named, one a line, in its file
// ".hidden", which is never shown itself; read-only is what its owner may not write. The bytes of a
// name are characters of code page 1252. No file has a short name.
class HostedFiles : public Files {
  public:
    explicit HostedFiles(std::string drivesRoot, std::string_view currentFolder = R"(C:\)");

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

    // Where `path` lies on this machine; raises 52, 68, 76.
    [[nodiscard]] std::string hostPath(std::string_view path) const { return root_.hostPath(path); }

  private:
    struct HostFile {
        std::string path;
        FileDescriptor file; // not open: nothing is there
    };
    // What lies at `path`, open but not held. Raises as DrivesRoot::find, and 75 (not allowed).
    [[nodiscard]] HostFile look(std::string_view path) const;
    enum class Access { OfTarget, OfSource };
    void move(std::string_view from, std::string_view to, Access access);

    DrivesRoot root_;
};

} // namespace tarnwick
