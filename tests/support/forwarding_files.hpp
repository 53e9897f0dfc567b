#pragma once

#include "platform/files.hpp"

namespace tarnwick {

// Forwards every call. A test derives from it and overrides the one call that it wants to differ.
class ForwardingFiles : public Files {
  public:
    // Refers to `files`, which must outlive it.
    explicit ForwardingFiles(Files& files) : files_(files) {}

    [[nodiscard]] bool canListFolder(std::string_view folder) const override {
        return files_.canListFolder(folder);
    }
    [[nodiscard]] std::string firstNormalFile(std::string_view path) const override {
        return files_.firstNormalFile(path);
    }
    [[nodiscard]] Listing listFiles(std::string_view folder,
                                    std::string_view patterns) const override {
        return files_.listFiles(folder, patterns);
    }
    [[nodiscard]] Listing listFolders(std::string_view folder) const override {
        return files_.listFolders(folder);
    }
    [[nodiscard]] std::vector<std::string> drives() const override { return files_.drives(); }
    [[nodiscard]] std::string currentFolder() const override { return files_.currentFolder(); }
    [[nodiscard]] std::string shortPath(std::string_view path) const override {
        return files_.shortPath(path);
    }
    [[nodiscard]] std::unique_ptr<InputFile> openForReading(std::string_view path) const override {
        return files_.openForReading(path);
    }
    [[nodiscard]] std::unique_ptr<OutputFile> create(std::string_view path) override {
        return files_.create(path);
    }
    [[nodiscard]] std::unique_ptr<OutputFile> createNew(std::string_view path) override {
        return files_.createNew(path);
    }
    [[nodiscard]] std::unique_ptr<OutputFile> append(std::string_view path) override {
        return files_.append(path);
    }
    void remove(std::string_view path) override { files_.remove(path); }
    void createFolder(std::string_view path) override { files_.createFolder(path); }
    void moveOver(std::string_view from, std::string_view to) override {
        files_.moveOver(from, to);
    }
    void replace(std::string_view from, std::string_view to) override { files_.replace(from, to); }

  private:
    Files& files_;
};

} // namespace tarnwick
