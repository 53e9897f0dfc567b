// Measures the main window's file lists over folders of 20,000 and 100,000 real files, each step
// beside the same names put into a bare list box (and, where the folder is read, the bare reading
// of the folder as well), in one run.
//
// lists_bench FOLDER: FOLDER holds a file mp.exe and the folders 20000 and 100000, with as many
// files *.met.

#include "platform/win32/win32_clock.hpp"
#include "platform/win32/win32_command_interpreter.hpp"
#include "platform/win32/win32_files.hpp"
#include "platform/win32/win32_pending_events.hpp"
#include "support/fake_process.hpp"
#include "support/memory_settings_store.hpp"
#include "timing.hpp"
#include "ui/main/frm_main.hpp"
#include "ui/win32/win32_main_window.hpp"

#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr int rounds = 5;

// A list box as large as one of the window's, which nobody has thought about.
class BareListBox {
  public:
    BareListBox()
        : window_(CreateWindowExA(0, "LISTBOX", "", WS_VISIBLE | WS_BORDER | WS_VSCROLL, 0, 0, 250,
                                  160, nullptr, nullptr, nullptr, nullptr)) {}
    BareListBox(const BareListBox&) = delete;
    BareListBox& operator=(const BareListBox&) = delete;
    ~BareListBox() { DestroyWindow(window_); }

    void fill(const std::vector<std::string>& names) const {
        SendMessageA(window_, WM_SETREDRAW, FALSE, 0);
        SendMessageA(window_, LB_RESETCONTENT, 0, 0);
        for (const std::string& name : names) {
            SendMessageA(window_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
        }
        SendMessageA(window_, WM_SETREDRAW, TRUE, 0);
    }

  private:
    HWND window_;
};

std::vector<std::string> namesIn(const fs::path& folder) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA entry{};
    HANDLE search = FindFirstFileA((folder / "*.met").string().c_str(), &entry);
    do {
        names.emplace_back(entry.cFileName);
    } while (FindNextFileA(search, &entry) != FALSE);
    FindClose(search);
    return names;
}

struct Times {
    double list = 0;
    double moveAll = 0;
    double moveBack = 0;
    double relist = 0;
};

class ListsBench {
  public:
    explicit ListsBench(frmMain& form) : form_(form) {}

    Times measure(const fs::path& folder) {
        const std::vector<std::string> names = namesIn(folder);
        const int count = static_cast<int>(names.size());
        Timing fill;
        Timing readAndFill;
        Timing list;
        Timing moveAll;
        Timing moveBack;
        Timing relist;
        const BareListBox bare;
        for (int round = 0; round < rounds; ++round) {
            showFolder(folder.parent_path().string());
            fill.measure([&] { bare.fill(names); });
            readAndFill.measure([&] { bare.fill(namesIn(folder)); });
            list.measure([&] { showFolder(folder.string()); });
            moveAll.measure([&] { form_.userClicked(form_.cmdSelectFiles[1]); });
            moveBack.measure([&] { form_.userClicked(form_.cmdSelectFiles[3]); });
            selectHalf(count);
            relist.measure([&] { changePatterns(); });
            form_.userClicked(form_.cmdSelectFiles[3]);
        }
        print(count, {list.median(), moveAll.median(), moveBack.median(), relist.median()},
              fill.median(), readAndFill.median());
        return {list.median(), moveAll.median(), moveBack.median(), relist.median()};
    }

  private:
    void showFolder(const std::string& folder) { leaveAfter(form_.txtInput, folder); }
    void changePatterns() {
        leaveAfter(form_.txtInExt, form_.txtInExt.text() == "*.met" ? "*.m?t" : "*.met");
    }
    void leaveAfter(TextBox& field, const std::string& text) {
        form_.userMovedFocus(field);
        field.selectAll();
        field.userTyped(text);
        form_.userMovedFocus(form_.lstAvailable);
    }
    void selectHalf(int count) {
        std::vector<int> half;
        for (int i = 0; i < count; i += 2) {
            half.push_back(i);
        }
        form_.lstAvailable.userSelected(half);
        form_.userClicked(form_.cmdSelectFiles[0]);
    }

    void print(int count, const Times& times, double fill, double readAndFill) const {
        std::cout << '\n' << count << " files: milliseconds, of the bare list box, ratio\n";
        printRatio("listing the folder / reading and filling", times.list, readAndFill, 2);
        printRatio("listing again, half selected / the same", times.relist, readAndFill, 2);
        printRatio("\">>\" / filling", times.moveAll, fill, 2);
        printRatio("\"<<\" / filling", times.moveBack, fill, 2);
    }

    frmMain& form_;
};

void printGrowth(const Times& few, const Times& many) {
    std::cout << "\nFrom 20,000 to 100,000 files the time grows by, of 5 at best\n";
    printRatio("listing", many.list, few.list, 6);
    printRatio("listing again", many.relist, few.relist, 6);
    printRatio("\">>\"", many.moveAll, few.moveAll, 6);
    printRatio("\"<<\"", many.moveBack, few.moveBack, 6);
}

// Runs something from inside the window's own loop, when everything is on the screen.
class AfterShowing {
  public:
    explicit AfterShowing(std::function<void()> work)
        : work_(std::move(work)),
          timer_(CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                 nullptr)) {
        constexpr UINT milliseconds = 500;
        SetTimer(timer_, reinterpret_cast<UINT_PTR>(this), milliseconds, &AfterShowing::run);
    }
    AfterShowing(const AfterShowing&) = delete;
    AfterShowing& operator=(const AfterShowing&) = delete;
    ~AfterShowing() { DestroyWindow(timer_); }

  private:
    static void CALLBACK run(HWND window, UINT /*message*/, UINT_PTR self, DWORD /*time*/) {
        KillTimer(window, self);
        reinterpret_cast<AfterShowing*>(self)->work_(); // NOLINT(*-int-to-ptr)
    }

    std::function<void()> work_;
    HWND timer_;
};

// Nothing goes wrong in a benchmark; if something does, it must not pass as a good time.
class NoDesktop : public Desktop {
  public:
    [[nodiscard]] bool isSeen() const noexcept override { return true; }
    MessageAnswer show(const Message& message) override {
        std::cerr << message.text << '\n';
        std::abort();
    }
    std::optional<std::string> chooseFile(const FileDialog& /*dialog*/) override { std::abort(); }
    std::int32_t openDocument(std::string_view /*document*/,
                              std::string_view /*workingFolder*/) override {
        std::abort();
    }
};

int run(const fs::path& root) {
    const fs::path few = root / "20000";
    const fs::path many = root / "100000";

    Win32Files files;
    NoDesktop desktop;
    Win32CommandInterpreter interpreter;
    const Win32Clock clock;
    FakeProcess process;
    process.givenProgramFolder = root.string();
    MemorySettingsStore settings;
    Win32MainWindow window;
    Win32PendingEvents events(&window);
    frmMain form({.files = files,
                  .desktop = desktop,
                  .interpreter = interpreter,
                  .events = events,
                  .clock = clock,
                  .process = process,
                  .settings = settings});
    ListsBench bench(form);
    const AfterShowing measuring([&] {
        const Times of20k = bench.measure(few);
        printGrowth(of20k, bench.measure(many));
        PostQuitMessage(0);
    });
    window.run(form);
    return 0;
}

} // namespace
} // namespace tarnwick

int main(int argc, char* argv[]) {
    return argc == 2 ? tarnwick::run(argv[1]) : 2;
}
