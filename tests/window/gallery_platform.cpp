#include "window/gallery_platform.hpp"

#include "platform/run_time_error.hpp"

#include <windows.h>

#include <commdlg.h>

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick::gallery {
namespace {

[[noreturn]] void unasked() {
    throw std::logic_error("no dialog of the gallery asks for this");
}

DWORD attributes(std::string_view path) {
    return GetFileAttributesA(std::string(path).c_str());
}

class GalleryFiles final : public Files {
  public:
    [[nodiscard]] bool canListFolder(std::string_view folder) const override {
        const DWORD found = attributes(folder);
        return found != INVALID_FILE_ATTRIBUTES && (found & FILE_ATTRIBUTE_DIRECTORY) != 0;
    }
    [[nodiscard]] std::string firstNormalFile(std::string_view path) const override {
        const DWORD found = attributes(path);
        const bool file =
            found != INVALID_FILE_ATTRIBUTES && (found & FILE_ATTRIBUTE_DIRECTORY) == 0;
        return file ? std::string(path) : "";
    }
    [[nodiscard]] std::vector<std::string> listFiles(std::string_view,
                                                     std::string_view) const override {
        unasked();
    }
    [[nodiscard]] std::vector<std::string> listFolders(std::string_view) const override {
        unasked();
    }
    [[nodiscard]] std::vector<std::string> drives() const override { unasked(); }
    [[nodiscard]] std::string currentFolder() const override { unasked(); }
    [[nodiscard]] std::string shortPath(std::string_view) const override { unasked(); }
    [[nodiscard]] std::unique_ptr<InputFile> openForReading(std::string_view) const override {
        unasked();
    }
    [[nodiscard]] std::unique_ptr<OutputFile> create(std::string_view) override { unasked(); }
    [[nodiscard]] std::unique_ptr<OutputFile> append(std::string_view) override { unasked(); }
    void remove(std::string_view) override { unasked(); }
    void createFolder(std::string_view) override { unasked(); }
    void moveOver(std::string_view, std::string_view) override { unasked(); }
};

class GalleryDesktop final : public Desktop {
  public:
    MessageAnswer show(const Message& message) override {
        const UINT icon = message.icon == MessageIcon::Exclamation ? MB_ICONEXCLAMATION : 0;
        MessageBoxA(GetActiveWindow(), message.text.c_str(), message.title.c_str(), MB_OK | icon);
        return MessageAnswer::Ok;
    }
    std::string chooseFile(const FileDialog& dialog) override {
        std::string filter = dialog.filter + "||";
        for (char& character : filter) {
            character = character == '|' ? '\0' : character;
        }
        std::array<char, MAX_PATH> name{};
        OPENFILENAMEA request{};
        request.lStructSize = sizeof request;
        request.hwndOwner = GetActiveWindow();
        request.lpstrFilter = filter.c_str();
        request.lpstrFile = name.data();
        request.nMaxFile = static_cast<DWORD>(name.size());
        request.lpstrTitle = dialog.title.c_str();
        request.lpstrInitialDir = dialog.initialFolder.c_str();
        request.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR;
        const bool open = dialog.kind == FileDialog::Kind::Open;
        if ((open ? GetOpenFileNameA(&request) : GetSaveFileNameA(&request)) == FALSE) {
            throw RunTimeError(ErrorNumber::Cancelled);
        }
        return name.data();
    }
    std::string askForText(std::string_view, std::string_view) override { unasked(); }
    std::int32_t openDocument(std::string_view, std::string_view) override { unasked(); }
};

} // namespace

std::unique_ptr<Files> makeFiles() {
    return std::make_unique<GalleryFiles>();
}

std::unique_ptr<Desktop> makeDesktop() {
    return std::make_unique<GalleryDesktop>();
}

} // namespace tarnwick::gallery
