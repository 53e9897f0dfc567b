#pragma once

#include "platform/files.hpp"

namespace tarnwick {

// The file system of Windows, asked through its wide functions (see system_text.hpp).
class Win32Files : public Files {
  public:
    // On a volume that keeps short names they can be ignored, as if it kept none.
    enum class ShortNames { Used, Ignored };
    explicit Win32Files(ShortNames shortNames = ShortNames::Used) noexcept
        : shortNames_(shortNames) {}

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
    void moveOver(std::string_view from, std::string_view to) override {
        move(from, to, Access::OfTarget);
    }
    void replace(std::string_view from, std::string_view to) override {
        move(from, to, Access::OfSource);
    }

  protected:
    // Between two attempts to change a file that somebody has open: lets that one finish.
    virtual void pauseBetweenAttempts() noexcept;

  private:
    // What `change` gives. It is made again for half a second while it raises 70.
    template <typename Change>
    auto outlastUse(const Change& change);
    enum class Access { OfTarget, OfSource };
    void move(std::string_view from, std::string_view to, Access access);

    ShortNames shortNames_;
};

} // namespace tarnwick
