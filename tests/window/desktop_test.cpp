// The desktop of Windows, with a second thread for its user.

#include "platform/run_time_error.hpp"
#include "platform/win32/asking_window.hpp"
#include "platform/win32/handle.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/win32/win32_desktop.hpp"
#include "platform/win32/win32_files.hpp"
#include "platform/win32/win32_process.hpp"
#include "support/deceiving_names.hpp"
#include "support/eventually.hpp"
#include "support/file_bytes.hpp"

#include <windows.h>

#include <dlgs.h>
#include <gtest/gtest.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace tarnwick {
namespace {

// Waits for the dialog of that title, does something with it, and is gone before the test goes on.
class User {
  public:
    User(std::string title, std::function<void(HWND)> act)
        : thread_([title = std::move(title), act = std::move(act)] { act(awaited(title)); }) {}
    User(const User&) = delete;
    User& operator=(const User&) = delete;
    ~User() { thread_.join(); }

  private:
    static HWND awaited(const std::string& title) {
        HWND dialog = nullptr;
        const auto isShown = [&] {
            dialog = FindWindowA(nullptr, title.c_str());
            return dialog != nullptr && IsWindowVisible(dialog) != 0;
        };
        if (eventually(isShown)) {
            return dialog;
        }
        // The call that should have shown it will never return.
        std::cerr << "no dialog was shown with the title " << title << '\n';
        std::_Exit(EXIT_FAILURE);
    }

    std::thread thread_;
};

// Waits for another dialog of that title when this one has gone. Null where none comes.
HWND nextAfter(HWND dialog, const char* title) {
    HWND next = nullptr;
    const bool comes = eventually([&] {
        next = FindWindowA(nullptr, title);
        return next != nullptr && next != dialog && IsWindowVisible(next) != 0;
    });
    return comes ? next : nullptr;
}

void press(HWND dialog, int button) {
    PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}

std::string textOf(HWND window) {
    std::string text(1000, '\0');
    text.resize(static_cast<std::size_t>(
        SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

void type(HWND field, const std::string& text) {
    SendMessageA(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}
void type(HWND field, const std::wstring& text) {
    SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

std::vector<std::string> textsIn(HWND dialog) {
    std::vector<std::string> texts;
    for (auto child = GetWindow(dialog, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        texts.push_back(textOf(child));
    }
    return texts;
}

Message question() {
    return {.text = "Save caf\xE9?", .title = "Tarnwick", .buttons = MessageButtons::YesNo};
}

TEST(Win32Desktop, On_a_screen_it_is_seen) {
    EXPECT_TRUE(Win32Desktop().isSeen());
}

TEST(Win32Desktop, A_message_is_shown_until_its_user_says_OK_or_closes_it) {
    Win32Desktop desktop;
    const Message message{
        .text = "Caf\xE9 & more", .title = "Warning", .icon = MessageIcon::Exclamation};
    for (const bool close : {false, true}) {
        std::vector<std::string> texts;
        const User user("Warning", [&](HWND dialog) {
            texts = textsIn(dialog);
            if (close) {
                PostMessageA(dialog, WM_CLOSE, 0, 0);
            } else {
                press(dialog, IDOK);
            }
        });
        EXPECT_EQ(desktop.show(message), MessageAnswer::Ok);
        EXPECT_EQ(std::count(texts.begin(), texts.end(), message.text), 1);
    }
}

TEST(Win32Desktop, A_question_is_answered_by_Yes_or_No) {
    Win32Desktop desktop;
    for (const bool yes : {true, false}) {
        std::vector<std::string> texts;
        const User user("Tarnwick", [&](HWND dialog) {
            texts = textsIn(dialog);
            press(dialog, yes ? IDYES : IDNO);
        });
        EXPECT_EQ(desktop.show(question()), yes ? MessageAnswer::Yes : MessageAnswer::No);
        EXPECT_EQ(std::count(texts.begin(), texts.end(), question().text), 1);
    }
}

// What closes it is no answer, and either answer could cost the user something.
TEST(Win32Desktop, A_question_that_is_closed_without_an_answer_is_asked_again) {
    Win32Desktop desktop;
    for (const bool yes : {true, false}) {
        HWND first = nullptr;
        HWND second = nullptr;
        const User user("Tarnwick", [&](HWND dialog) {
            first = dialog;
            PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0); // as Escape does
            second = nextAfter(dialog, "Tarnwick");
            press(second, yes ? IDYES : IDNO);
        });
        EXPECT_EQ(desktop.show(question()), yes ? MessageAnswer::Yes : MessageAnswer::No);
        EXPECT_NE(first, second);
    }
}

// Nothing could be shown any more: it would be asked for ever.
TEST(Win32Desktop, A_program_that_is_told_to_end_is_not_asked_again) {
    Win32Desktop desktop;
    const User user("Tarnwick", [&](HWND dialog) {
        PostThreadMessageA(GetWindowThreadProcessId(dialog, nullptr), WM_QUIT, 0, 0);
    });
    EXPECT_EQ(desktop.show(question()), MessageAnswer::No);
    MSG message{};
    EXPECT_NE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), FALSE);
}

// A window of this thread with a title.
class Asker {
  public:
    explicit Asker(const char* title)
        : window_(CreateWindowExA(0, "Static", title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 300,
                                  200, nullptr, nullptr, nullptr, nullptr)) {}
    Asker(const Asker&) = delete;
    Asker& operator=(const Asker&) = delete;
    ~Asker() { DestroyWindow(window_); }

    [[nodiscard]] HWND get() const noexcept { return window_; }

  private:
    HWND window_;
};

TEST(Win32Desktop, Without_a_window_nobody_asks) {
    EXPECT_EQ(askingWindow(), nullptr);
}

TEST(Win32Desktop,
     Dialogs_are_owned_by_the_window_that_asks_also_when_another_program_is_in_front) {
    const Asker behind("behind");
    const Asker asking("asking");
    EnableWindow(behind.get(), FALSE); // it waits for the other one
    SetForegroundWindow(GetDesktopWindow());
    SetActiveWindow(nullptr);
    ASSERT_EQ(GetActiveWindow(), nullptr);
    EXPECT_EQ(askingWindow(), asking.get());
    Win32Desktop desktop;
    HWND owner = nullptr;
    {
        const User user("Tarnwick", [&](HWND dialog) {
            owner = GetWindow(dialog, GW_OWNER);
            press(dialog, IDNO);
        });
        desktop.show(question());
    }
    EXPECT_EQ(owner, asking.get());
    owner = nullptr;
    {
        const User user("Open one", [&](HWND dialog) {
            owner = GetWindow(dialog, GW_OWNER);
            press(dialog, IDCANCEL);
        });
        FileDialog dialog;
        dialog.title = "Open one";
        EXPECT_EQ(desktop.chooseFile(dialog), std::nullopt);
    }
    EXPECT_EQ(owner, asking.get());
}

class FileDialogs : public testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::remove_all(folder); // an earlier run may have been cut short
        files.createFolder(folder);
        dialog.title = "Save As";
        dialog.kind = FileDialog::Kind::Save;
        dialog.filter = "INI File (*.ini)|*.ini|All Files (*.*)|*.*";
        dialog.initialFolder = folder;
    }
    void TearDown() override {
        std::error_code ignored; // a program that was opened may still stand in it
        std::filesystem::remove_all(folder, ignored);
    }

    // The field for the name, as whichever kind of control the dialog has for it.
    static HWND nameField(HWND shown) {
        const auto field = GetDlgItem(shown, edt1);
        return field != nullptr ? field : GetDlgItem(shown, cmb13);
    }

    [[nodiscard]] bool exists(std::string_view name) const {
        return !files.firstNormalFile(folder + std::string(name)).empty();
    }

    Win32Files files;
    std::string folder = Win32Process().environmentVariable("TEMP") + R"(\tarnwick-desktop-)" +
                         std::to_string(GetCurrentProcessId()) + "-" +
                         testing::UnitTest::GetInstance()->current_test_info()->name();
    Win32Desktop desktop;
    FileDialog dialog;
};

TEST_F(FileDialogs, The_full_path_of_the_chosen_file_comes_back) {
    const User user("Save As", [&](HWND shown) {
        type(nameField(shown), "caf\xE9.ini");
        press(shown, IDOK);
    });
    EXPECT_EQ(desktop.chooseFile(dialog), folder + "\\caf\xE9.ini");
}

// A dialog may take the program along to the folders that its user looks into.
TEST_F(FileDialogs, The_current_folder_stays_wherever_the_user_goes) {
    const auto before = files.currentFolder();
    for (const auto kind : {FileDialog::Kind::Open, FileDialog::Kind::Save}) {
        for (const bool cancelled : {false, true}) {
            dialog.kind = kind;
            const User user("Save As", [&](HWND shown) {
                EXPECT_NE(SetCurrentDirectoryW(toWide(folder).c_str()), FALSE);
                type(nameField(shown), "new.ini");
                press(shown, cancelled ? IDCANCEL : IDOK);
            });
            EXPECT_EQ(desktop.chooseFile(dialog),
                      cancelled ? std::nullopt : std::optional(folder + R"(\new.ini)"));
            EXPECT_EQ(files.currentFolder(), before);
            SetCurrentDirectoryW(toWide(before).c_str());
        }
    }
}

TEST_F(FileDialogs, Name_and_filters_are_shown_with_the_asked_one_first) {
    dialog.fileName = "first.ini";
    dialog.filterIndex = 2;
    std::string name;
    std::vector<std::string> filters;
    LRESULT selected = -1;
    const User user("Save As", [&](HWND shown) {
        name = textOf(nameField(shown));
        const auto combo = GetDlgItem(shown, cmb1);
        selected = SendMessageA(combo, CB_GETCURSEL, 0, 0);
        for (WPARAM i = 0; i < 2; ++i) {
            std::string text(200, '\0');
            const auto length =
                SendMessageA(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text.data()));
            filters.push_back(text.substr(0, static_cast<std::size_t>(length)));
        }
        press(shown, IDCANCEL);
    });
    EXPECT_EQ(desktop.chooseFile(dialog), std::nullopt);
    EXPECT_EQ(name, "first.ini");
    EXPECT_EQ(filters, (std::vector<std::string>{"INI File (*.ini)", "All Files (*.*)"}));
    EXPECT_EQ(selected, 1);
}

TEST_F(FileDialogs, A_name_without_an_extension_gets_that_of_the_first_filter) {
    const User user("Save As", [&](HWND shown) {
        type(nameField(shown), "all");
        press(shown, IDOK);
    });
    EXPECT_EQ(desktop.chooseFile(dialog), folder + R"(\all.ini)");
}

TEST_F(FileDialogs, A_name_with_another_extension_keeps_it) {
    const User user("Save As", [&](HWND shown) {
        type(nameField(shown), "all.txt");
        press(shown, IDOK);
    });
    EXPECT_EQ(desktop.chooseFile(dialog), folder + R"(\all.txt)");
}

TEST_F(FileDialogs, With_another_filter_chosen_a_name_stays_as_it_was_typed) {
    dialog.filterIndex = 2;
    const User user("Save As", [&](HWND shown) {
        type(nameField(shown), "all");
        press(shown, IDOK);
    });
    EXPECT_EQ(desktop.chooseFile(dialog), folder + R"(\all)");
}

TEST_F(FileDialogs, A_name_that_is_to_be_opened_stays_as_it_was_typed) {
    dialog.kind = FileDialog::Kind::Open;
    dialog.title = "Open";
    putBytes(files, folder + R"(\all)", "");
    const User user("Open", [&](HWND shown) {
        type(nameField(shown), "all");
        press(shown, IDOK);
    });
    EXPECT_EQ(desktop.chooseFile(dialog), folder + R"(\all)");
}

TEST_F(FileDialogs, A_file_that_the_added_extension_would_replace_is_not_taken_without_asking) {
    dialog.overwritePrompt = true;
    putBytes(files, folder + R"(\all.ini)", "");
    std::string name;
    const User user("Save As", [&](HWND shown) {
        type(nameField(shown), "all");
        press(shown, IDOK);
        const auto again = nextAfter(shown, "Save As");
        name = textOf(nameField(again));
        press(again, IDCANCEL);
    });
    EXPECT_EQ(desktop.chooseFile(dialog), std::nullopt);
    EXPECT_NE(name.find("all.ini"), std::string::npos) << name;
}

TEST_F(FileDialogs, An_existing_file_is_opened) {
    dialog.kind = FileDialog::Kind::Open;
    dialog.title = "Open";
    dialog.fileMustExist = true;
    putBytes(files, folder + R"(\here.ini)", "");
    const User user("Open", [&](HWND shown) {
        type(nameField(shown), "here.ini");
        press(shown, IDOK);
    });
    EXPECT_EQ(desktop.chooseFile(dialog), folder + R"(\here.ini)");
}

TEST_F(FileDialogs, A_chosen_file_without_a_name_in_the_code_page_comes_by_its_short_name) {
    dialog.kind = FileDialog::Kind::Open;
    dialog.title = "Open";
    dialog.fileMustExist = true;
    for (const auto& name : deceivingNames) {
        const auto path = toWide(folder) + L'\\' + name;
        ASSERT_TRUE(
            Handle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr))
                .isOpen());
        const User user("Open", [&](HWND shown) {
            type(nameField(shown), name);
            press(shown, IDOK);
        });
        const std::string chosen = desktop.chooseFile(dialog).value_or("?");
        EXPECT_EQ(chosen.find_first_of("\"%*?<>|/"), std::string::npos) << chosen;
        EXPECT_NE(files.firstNormalFile(chosen), "") << chosen;
        // The very file: it is gone under its own name, too.
        files.remove(chosen);
        EXPECT_EQ(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES) << chosen;
    }
}

TEST_F(FileDialogs, A_file_to_be_made_that_would_have_no_name_is_told_and_not_taken) {
    for (const auto& name : deceivingNames) {
        std::vector<std::string> texts;
        const User user("Save As", [&](HWND shown) {
            type(nameField(shown), name);
            press(shown, IDOK);
        });
        const User reader("Warning", [&](HWND shown) {
            texts = textsIn(shown);
            press(shown, IDOK);
        });
        EXPECT_EQ(desktop.chooseFile(dialog), std::nullopt);
        EXPECT_EQ(std::ranges::count(texts, "\"" + folder + '\\' + shownText(name) +
                                                "\" holds characters that the system's code page "
                                                "does not have.\r\nPlease use another name."),
                  1)
            << shownText(name);
    }
}

TEST_F(FileDialogs, A_document_is_opened_by_its_program_in_the_working_folder) {
    putBytes(files, folder + R"(\open me.bat)", "@echo done> marker.txt\r\n");
    EXPECT_GT(desktop.openDocument(folder + R"(\open me.bat)", folder), 32);
    EXPECT_TRUE(eventually([&] { return exists(R"(\marker.txt)"); }));
}

TEST_F(FileDialogs, A_document_that_is_not_there_gives_the_result_of_the_system) {
    EXPECT_EQ(desktop.openDocument(folder + R"(\missing.htm)", folder), SE_ERR_FNF);
}

} // namespace
} // namespace tarnwick
