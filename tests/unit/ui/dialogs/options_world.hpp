#pragma once

#include "platform/desktop.hpp"
#include "platform/files.hpp"
#include "platform/run_time_error.hpp"
#include "ui/dialogs/frm_options.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick::test {

// Knows a few files and folders; nothing else is asked of it here.
class FewFiles : public Files {
  public:
    std::set<std::string, std::less<>> files;
    std::set<std::string, std::less<>> folders; // with their final "\"
    bool outOfMemory = false;                   // what no existence test keeps to itself

    [[nodiscard]] bool canListFolder(std::string_view folder) const override {
        fault();
        return folders.contains(folder);
    }
    [[nodiscard]] std::string firstNormalFile(std::string_view path) const override {
        fault();
        return files.contains(path) ? std::string(path.substr(path.rfind('\\') + 1)) : "";
    }
    [[nodiscard]] std::vector<std::string> listFiles(std::string_view,
                                                     std::string_view) const override {
        return unasked<std::vector<std::string>>();
    }
    [[nodiscard]] std::vector<std::string> listFolders(std::string_view) const override {
        return unasked<std::vector<std::string>>();
    }
    [[nodiscard]] std::vector<std::string> drives() const override {
        return unasked<std::vector<std::string>>();
    }
    [[nodiscard]] std::string currentFolder() const override { return unasked<std::string>(); }
    [[nodiscard]] std::string shortPath(std::string_view) const override {
        return unasked<std::string>();
    }
    [[nodiscard]] std::unique_ptr<InputFile> openForReading(std::string_view) const override {
        return unasked<std::unique_ptr<InputFile>>();
    }
    [[nodiscard]] std::unique_ptr<OutputFile> create(std::string_view) override {
        return unasked<std::unique_ptr<OutputFile>>();
    }
    [[nodiscard]] std::unique_ptr<OutputFile> append(std::string_view) override {
        return unasked<std::unique_ptr<OutputFile>>();
    }
    void remove(std::string_view) override { unasked<int>(); }
    void createFolder(std::string_view) override { unasked<int>(); }
    void moveOver(std::string_view, std::string_view) override { unasked<int>(); }

  private:
    void fault() const {
        if (outOfMemory) {
            throw std::bad_alloc();
        }
    }
    template <typename Result>
    static Result unasked() {
        ADD_FAILURE() << "the dialog asks this of no file system";
        return {};
    }
};

// Keeps what it shows, and answers a file dialog with `chosen`, or as cancelled without one.
class KeepingDesktop : public Desktop {
  public:
    std::vector<Message> messages;
    std::vector<FileDialog> dialogs;
    std::optional<std::string> chosen;
    ErrorNumber refusal = ErrorNumber::Cancelled;
    std::function<void()> whileShowing; // runs before a message is dismissed

    MessageAnswer show(const Message& message) override {
        messages.push_back(message);
        if (whileShowing) {
            whileShowing();
        }
        return MessageAnswer::Ok;
    }
    std::string chooseFile(const FileDialog& dialog) override {
        dialogs.push_back(dialog);
        if (!chosen) {
            throw RunTimeError(refusal);
        }
        return *chosen;
    }
    std::string askForText(std::string_view, std::string_view) override {
        ADD_FAILURE() << "no text is asked for";
        return {};
    }
    std::int32_t openDocument(std::string_view, std::string_view) override {
        ADD_FAILURE() << "no document is opened";
        return 0;
    }
};

inline Message warning(std::string_view text) {
    return {.text = std::string(text), .title = "Warning", .icon = MessageIcon::Exclamation};
}

inline Message report(std::string_view procedure, std::string_view number,
                      std::string_view description) {
    std::string text = "Caller:            frmOptions - ";
    text.append(procedure).append("\r\nSource:            Tarnwick\r\nNumber:            ");
    text.append(number).append("\r\nDescription:       ").append(description);
    text.append("\r\nLastDllErrorError: 0");
    return {.text = std::move(text), .title = "Tarnwick"};
}

// The dialog over a definition whose tools exist.
struct OptionsWorld : testing::Test {
    BatchDefinition definition;
    FewFiles files;
    KeepingDesktop desktop;
    frmOptions form{definition, files, desktop};

    OptionsWorld() {
        definition.sAppFolder = "C:\\App\\";
        definition.sMPExecutable = "C:\\App\\mp.exe";
        definition.sCNSExecutable = "C:\\App\\cns.exe";
        definition.iProcessMP = 1;
        definition.iProcessCNS = 1;
        files.files = {"C:\\App\\mp.exe", "C:\\App\\cns.exe", "D:\\Tools\\mp.exe"};
        files.folders = {"C:\\App\\", "C:\\Logs\\"};
    }

    // The user goes to the field and types over what is there.
    void type(TextBox& field, std::string_view text) {
        form.userMovedFocus(field);
        field.userSelected(0, static_cast<int>(field.text().size()));
        field.userTyped(text);
    }

    void expectRefusal(const TextBox& field, std::string_view message) {
        EXPECT_THAT(desktop.messages, testing::ElementsAre(warning(message)));
        EXPECT_TRUE(form.visible());
        EXPECT_EQ(form.focused(), &field);
        EXPECT_EQ(field.selStart(), 0);
        EXPECT_EQ(field.selLength(), static_cast<int>(field.text().size()));
    }
};

} // namespace tarnwick::test
