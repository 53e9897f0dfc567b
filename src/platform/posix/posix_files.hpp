#pragma once

#include "platform/files.hpp"
#include "platform/posix/mounted_paths.hpp"

namespace tarnwick {

// The file system of a POSIX machine, shown as drives and shares (see MountedPaths). A new file is
// made beside one whose name differs only in case, as the system has it; and what lies on one
// volume of the machine does so, whatever drives lead there. Read-only is what its owner may not
// write. No file is hidden or has a short name, and none is ever in use: the system lets everybody
// open, replace and remove an open file.
class PosixFiles : public Files {
  public:
    explicit PosixFiles(Mounts mounts, std::string_view currentFolder = R"(C:\)");

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
    [[nodiscard]] std::string hostPath(std::string_view path) const {
        return paths_.hostPath(path);
    }
    // Of its path; raises 52.
    [[nodiscard]] std::string volume(std::string_view path) const { return paths_.volume(path); }

  private:
    struct Found {
        std::string path;                  // on this machine
        std::optional<struct stat> status; // nothing: there is no such file or folder
        bool isLink = false;
    };
    // What lies at `path`. Raises as MountedPaths::find, and 75 (not allowed).
    [[nodiscard]] Found look(std::string_view path) const;
    enum class Access { OfTarget, OfSource };
    void move(std::string_view from, std::string_view to, Access access);

    MountedPaths paths_;
};

} // namespace tarnwick
