// The contracts on Windows, and what only this implementation promises.

#include "contract/contract_fixture.hpp"
#include "contract/real_time.hpp"
#include "platform/win32/command_line.hpp"
#include "platform/win32/errors.hpp"
#include "platform/win32/handle.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/win32/win32_clock.hpp"
#include "platform/win32/win32_command_interpreter.hpp"
#include "platform/win32/win32_files.hpp"
#include "platform/win32/win32_pending_events.hpp"
#include "platform/win32/win32_process.hpp"
#include "platform/win32/win32_settings_store.hpp"
#include "support/eventually.hpp"

#include <windows.h>

#include <sddl.h>

#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr UINT eventMessage = WM_APP + 1;

using Event = std::function<void()>;

// Whoever takes the message of an event owns it.
std::unique_ptr<Event> takeEvent(LPARAM data) {
    return std::unique_ptr<Event>(
        reinterpret_cast<Event*>(data)); // NOLINT(performance-no-int-to-ptr)
}

LRESULT CALLBACK eventWindowProcedure(HWND window, UINT message, WPARAM word, LPARAM data) {
    if (message == eventMessage) {
        const auto event = takeEvent(data);
        (*event)();
        return 0;
    }
    return DefWindowProcA(window, message, word, data);
}

struct LocalFreeing {
    void operator()(void* memory) const noexcept { LocalFree(memory); }
};
using LocalMemory = std::unique_ptr<void, LocalFreeing>;

std::string sidOfThisUser() {
    HANDLE opened = nullptr;
    OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened);
    const Handle token(opened);
    std::array<std::byte, 512> user{};
    DWORD size = 0;
    GetTokenInformation(token.get(), TokenUser, user.data(), sizeof user, &size);
    char* text = nullptr;
    ConvertSidToStringSidA(reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid, &text);
    const LocalMemory owner(text);
    return text == nullptr ? std::string() : text;
}

// A window that nobody sees: every event posted to it is a message of its own.
class EventWindow {
  public:
    EventWindow()
        : window_(CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  GetModuleHandleA(nullptr), nullptr)) {
        if (window_ == nullptr) {
            throw std::runtime_error("no window for the events");
        }
        SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(eventWindowProcedure));
    }
    EventWindow(const EventWindow&) = delete;
    EventWindow& operator=(const EventWindow&) = delete;
    EventWindow(EventWindow&&) = delete;
    EventWindow& operator=(EventWindow&&) = delete;
    ~EventWindow() { DestroyWindow(window_); }

    void post(std::function<void()> event) {
        auto* handedOver = std::make_unique<Event>(std::move(event)).release();
        if (PostMessageA(window_, eventMessage, 0, reinterpret_cast<LPARAM>(handedOver)) == 0) {
            takeEvent(reinterpret_cast<LPARAM>(handedOver));
        }
    } // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): it lies in the message

  private:
    HWND window_;
};

// Of a name that no earlier run, which may have been cut short, has left behind; none where this
// user may make no folder.
std::optional<std::string> newFolderIn(const std::string& parent) {
    const auto stem = parent + R"(\tarnwick-test-)";
    int number = 1;
    while (CreateDirectoryA((stem + std::to_string(number)).c_str(), nullptr) == 0) {
        if (GetLastError() != ERROR_ALREADY_EXISTS) {
            return std::nullopt;
        }
        ++number;
    }
    return stem + std::to_string(number);
}

std::string newScratch() {
    const std::string place = Win32Process().environmentVariable("TEMP");
    const auto folder = newFolderIn(place);
    if (!folder) {
        throw std::runtime_error("no scratch folder could be made in " + place);
    }
    return *folder;
}

void addAttribute(const std::string& path, DWORD attribute) {
    const auto attributes = GetFileAttributesA(path.c_str());
    ASSERT_NE(attributes, INVALID_FILE_ATTRIBUTES) << path;
    ASSERT_NE(SetFileAttributesA(path.c_str(), attributes | attribute), 0) << path;
}

// Whether the folder is gone, after one pass over what is in it. (The library's remove_all was seen
// to begin anew for ever, at an entry that still shows while somebody else deletes it.)
bool removeFolder(const fs::path& folder) {
    std::error_code failed;
    std::vector<fs::path> entries;
    for (fs::directory_iterator entry(folder, failed); !failed && entry != fs::directory_iterator();
         entry.increment(failed)) {
        entries.push_back(entry->path());
    }
    for (const fs::path& entry : entries) {
        SetFileAttributesW(entry.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (DeleteFileW(entry.c_str()) == 0) {
            static_cast<void>(removeFolder(entry));
        }
    }
    return RemoveDirectoryW(folder.c_str()) != 0 ||
           GetFileAttributesW(folder.c_str()) == INVALID_FILE_ATTRIBUTES;
}

class Win32Platform final : public PlatformInRealTime {
  public:
    Win32Platform() { forgetSettings(); } // of an earlier run, which may have been cut short
    Win32Platform(const Win32Platform&) = delete;
    Win32Platform& operator=(const Win32Platform&) = delete;
    Win32Platform(Win32Platform&&) = delete;
    Win32Platform& operator=(Win32Platform&&) = delete;
    ~Win32Platform() override {
        // A batch file that has just ended may be held a little longer.
        static_cast<void>(eventually([&] { return removeFolder(scratch_); }));
        if (!otherVolume_.empty()) {
            static_cast<void>(removeFolder(otherVolume_));
        }
        forgetSettings();
        if (!substitute_.empty()) {
            DefineDosDeviceA(DDD_REMOVE_DEFINITION, substitute_.c_str(), nullptr);
        }
    }

    Files& files() override { return files_; }
    [[nodiscard]] std::string scratch() const override { return scratch_; }
    [[nodiscard]] std::string currentFolder() const override { return fs::current_path().string(); }
    // A drive that is empty by itself (the Wine prefix of these tests has one), or else a folder
    // in the place of a drive.
    std::string emptyDrive() override {
        for (const auto& drive : files_.drives()) {
            WIN32_FIND_DATAA entry{};
            const FindHandle search(FindFirstFileA((drive + R"(\*)").c_str(), &entry));
            const bool nothingFound = !search.isOpen() && GetLastError() == ERROR_FILE_NOT_FOUND;
            if (nothingFound && GetDriveTypeA((drive + '\\').c_str()) == DRIVE_FIXED) {
                return drive;
            }
        }
        files_.createFolder(scratch_ + R"(\empty drive)");
        substitute_ = missingDrive();
        DefineDosDeviceA(0, substitute_.c_str(), (scratch_ + R"(\empty drive)").c_str());
        return substitute_;
    }
    // Under Wine, where the drives are folders of one disk, the host's shared memory, or a folder
    // that often is a volume of its own; else the first drive that lies elsewhere.
    std::string otherVolume() override {
        auto roots = files_.drives();
        roots.insert(roots.begin(), {R"(Z:\dev\shm)", R"(Z:\tmp)", R"(Z:\var\tmp)", R"(Z:\run)"});
        for (const auto& root : roots) {
            const auto drive = root.substr(0, 2);
            if (drive == scratch_.substr(0, 2) || !files_.canListFolder(root) ||
                GetDriveTypeA((drive + '\\').c_str()) != DRIVE_FIXED) {
                continue;
            }
            const auto folder = newFolderIn(root);
            if (!folder) {
                continue;
            }
            if (liesElsewhere(*folder)) {
                otherVolume_ = *folder;
                return *folder;
            }
            RemoveDirectoryA(folder->c_str());
        }
        throw std::runtime_error("these tests need a second volume");
    }
    [[nodiscard]] std::string missingDrive() const override {
        std::string drive = "Q:";
        while (GetDriveTypeA((drive + '\\').c_str()) != DRIVE_NO_ROOT_DIR) {
            ++drive[0];
        }
        return drive;
    }
    void hide(const std::string& path) override { addAttribute(path, FILE_ATTRIBUTE_HIDDEN); }
    void makeSystem(const std::string& path) override { addAttribute(path, FILE_ATTRIBUTE_SYSTEM); }
    void makeReadOnly(const std::string& path) override {
        addAttribute(path, FILE_ATTRIBUTE_READONLY);
    }
    void keepFromOthers(const std::string& path) override {
        const std::string rights = "D:P(A;;FA;;;" + sidOfThisUser() + ")";
        PSECURITY_DESCRIPTOR descriptor = nullptr;
        ASSERT_NE(ConvertStringSecurityDescriptorToSecurityDescriptorA(
                      rights.c_str(), SDDL_REVISION_1, &descriptor, nullptr),
                  FALSE);
        const LocalMemory owner(descriptor);
        ASSERT_NE(SetFileSecurityA(path.c_str(), DACL_SECURITY_INFORMATION, descriptor), FALSE);
    }
    [[nodiscard]] std::string rightsTo(const std::string& path) const override {
        std::array<std::byte, 4096> descriptor{};
        DWORD size = 0;
        EXPECT_NE(GetFileSecurityA(path.c_str(), DACL_SECURITY_INFORMATION, descriptor.data(),
                                   sizeof descriptor, &size),
                  FALSE);
        char* text = nullptr;
        EXPECT_NE(
            ConvertSecurityDescriptorToStringSecurityDescriptorA(
                descriptor.data(), SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text, nullptr),
            FALSE);
        const LocalMemory owner(text);
        return text == nullptr ? std::string() : text;
    }
    // Wine makes up a short name for every name that needs one, on every volume.
    Files& filesWithoutShortNames() override { return filesWithoutShortNames_; }
    std::string makeNameless(const std::string& folder, const std::string& end) override {
        const auto path = toWide(folder) + L"\\\x03A9" + toWide(end);
        const Handle file(
            CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
        EXPECT_TRUE(file.isOpen());
        return "<U+03A9>" + end;
    }
    std::shared_ptr<void> keep(const std::string& path) override {
        auto file = std::make_shared<Handle>(CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                                                         0, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_TRUE(file->isOpen()) << path;
        return file;
    }
    [[nodiscard]] std::string libraryPath(const std::string& path) const override { return path; }
    SettingsStore& settings() override { return settings_; }
    [[nodiscard]] std::string application() const override { return application_; }
    Process& process() override { return process_; }
    void setVariable(const std::string& name, const std::string& value) override {
        SetEnvironmentVariableA(name.c_str(), value.c_str());
    }
    CommandInterpreter& interpreter() override { return interpreter_; }
    [[nodiscard]] std::string batchThatWaits(const std::string& signal,
                                             const std::string& marker) const override {
        return "@echo off\r\n:again\r\nif not exist \"" + signal + "\" goto again\r\n" +
               "echo done> \"" + marker + "\"\r\n";
    }
    Clock& clock() override { return clock_; }
    PendingEvents& events() override { return events_; }
    void post(std::function<void()> event) override { window_.post(std::move(event)); }

  private:
    [[nodiscard]] bool liesElsewhere(const std::string& folder) const {
        const auto probe = scratch_ + R"(\probe)";
        const auto moved = folder + R"(\probe)";
        CloseHandle(
            CreateFileA(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        const bool elsewhere = MoveFileExA(probe.c_str(), moved.c_str(), 0) == 0 &&
                               GetLastError() == ERROR_NOT_SAME_DEVICE;
        DeleteFileA(elsewhere ? probe.c_str() : moved.c_str());
        return elsewhere;
    }
    void forgetSettings() const {
        RegDeleteTreeA(HKEY_CURRENT_USER, (R"(Software\)" + application_).c_str());
    }

    std::string application_ = "Tarnwick Contract Test " + std::to_string(GetCurrentProcessId());
    std::string scratch_ = newScratch();
    std::string substitute_;
    std::string otherVolume_;
    Win32Files files_;
    Win32Files filesWithoutShortNames_{Win32Files::ShortNames::Ignored};
    Win32SettingsStore settings_;
    Win32Process process_;
    Win32CommandInterpreter interpreter_;
    Win32Clock clock_;
    Win32PendingEvents events_;
    EventWindow window_;
};

class Win32 : public ContractTest {
  protected:
    [[nodiscard]] bool appears(std::string_view name) const {
        return eventually([&] { return exists(name); });
    }
};

TEST_F(Win32, The_code_of_the_system_goes_along_with_the_error) {
    try {
        static_cast<void>(files.openForReading(in("missing.txt")));
        FAIL() << "there is no such file";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.record(), (ErrorRecord{.number = 53,
                                               .source = "Tarnwick",
                                               .description = "File not found",
                                               .lastDllError = ERROR_FILE_NOT_FOUND}));
    }
}

TEST(Win32Errors, Every_code_has_its_number) {
    using enum ErrorNumber;
    const std::vector<std::pair<DWORD, ErrorNumber>> numbers{
        {ERROR_FILE_NOT_FOUND, FileNotFound},
        {ERROR_PATH_NOT_FOUND, PathNotFound},
        {ERROR_DIRECTORY, PathNotFound},
        {ERROR_BAD_NETPATH, PathNotFound},
        {ERROR_BAD_NET_NAME, PathNotFound},
        {ERROR_SHARING_VIOLATION, PermissionDenied},
        {ERROR_LOCK_VIOLATION, PermissionDenied},
        {ERROR_ACCESS_DENIED, PathFileAccess},
        {ERROR_WRITE_PROTECT, PathFileAccess},
        {ERROR_ALREADY_EXISTS, PathFileAccess},
        {ERROR_NOT_SAME_DEVICE, DifferentDrive},
        {ERROR_DISK_FULL, DiskFull},
        {ERROR_HANDLE_DISK_FULL, DiskFull},
        {ERROR_NOT_READY, DiskNotReady},
        {ERROR_BAD_UNIT, DeviceUnavailable},
        {ERROR_INVALID_DRIVE, DeviceUnavailable},
        {ERROR_INVALID_NAME, BadFileName},
        {ERROR_FILENAME_EXCED_RANGE, BadFileName},
        {ERROR_TOO_MANY_OPEN_FILES, TooManyFiles},
        {ERROR_OUTOFMEMORY, OutOfMemory},
        {ERROR_CRC, DeviceIO}};
    for (const auto& [systemError, number] : numbers) {
        EXPECT_EQ(errorNumber(systemError), number) << systemError;
    }
}

TEST_F(Win32, A_device_is_no_file) {
    EXPECT_EQ(raisedBy([&] { return files.openForReading("NUL"); }), 75);
    EXPECT_EQ(raisedBy([&] { return files.create("NUL"); }), 75);
}

TEST_F(Win32, A_file_is_found_under_its_short_name_too) {
    const auto path = in("A long name with blanks.text");
    putBytes(files, path, "same");
    EXPECT_EQ(files.firstNormalFile(files.shortPath(path)), "A long name with blanks.text");
}

TEST_F(Win32, A_value_that_is_no_text_gives_the_fallback) {
    const auto application = platform->application();
    platform->settings().write(application, "S", "text", "x");
    const DWORD number = 5;
    ASSERT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, (R"(Software\)" + application + R"(\S)").c_str(),
                              "number", REG_DWORD, &number, sizeof number),
              ERROR_SUCCESS);
    EXPECT_EQ(platform->settings().read(application, "S", "number", "fallback"), "fallback");
    EXPECT_EQ(platform->settings().read(application, "S", "text", "fallback"), "x");
}

TEST_F(Win32, A_setting_stands_in_the_registry_under_its_own_name) {
    const auto application = platform->application();
    platform->settings().write(application, "TARNWICK", "MP Executable", "mp.exe");
    std::string value(100, '\0');
    DWORD size = 100;
    DWORD type = 0;
    ASSERT_EQ(RegGetValueA(HKEY_CURRENT_USER,
                           (R"(Software\)" + application + R"(\TARNWICK)").c_str(), "MP Executable",
                           RRF_RT_ANY, &type, value.data(), &size),
              ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(value.substr(0, size), std::string("mp.exe\0", 7));
}

TEST_F(Win32, A_store_that_cannot_be_written_raises_75) {
    // No key of the registry has so long a name.
    const std::string tooLong(300, 'x');
    EXPECT_EQ(raisedBy([&] { platform->settings().write(tooLong, "S", "k", "v"); }), 75);
    EXPECT_EQ(platform->settings().read(tooLong, "S", "k", "fallback"), "fallback");
}

TEST(Win32CommandLine, What_stands_behind_the_name_of_the_program_is_kept_as_typed) {
    EXPECT_EQ(behindProgramName(LR"("C:\Program Files\Tarnwick.exe" -I "a b.ini"  -n )"),
              LR"(-I "a b.ini"  -n )");
    EXPECT_EQ(behindProgramName(L"Tarnwick.exe   -I a.ini"), L"-I a.ini");
    EXPECT_EQ(behindProgramName(L"C:\\\"My Programs\"\\t.exe\t?"), L"?");
    EXPECT_EQ(behindProgramName(L"Tarnwick.exe"), L"");
    EXPECT_EQ(behindProgramName(LR"("C:\a b\Tarnwick.exe")"), L"");
    EXPECT_EQ(behindProgramName(L""), L"");
}

TEST(Win32CommandLine, The_interpreter_is_told_to_be_as_it_is_by_itself) {
    EXPECT_EQ(interpreterLine(LR"(C:\windows\cmd.exe)", LR"(C:\my temp\a.bat)"),
              LR"("C:\windows\cmd.exe" /d /e:on /v:off /s /c ""C:\my temp\a.bat"")");
}

TEST(Win32CommandLine, The_interpreter_is_not_started_on_a_share) {
    EXPECT_EQ(folderToStartIn(LR"(\\server\share\in)", LR"(C:\my temp\a.bat)"), LR"(C:\my temp\)");
    EXPECT_EQ(folderToStartIn(LR"(\\server\share\in)", L"a.bat"), L"");
    EXPECT_EQ(folderToStartIn(LR"(D:\in)", LR"(C:\my temp\a.bat)"), L"");
}

TEST(Win32Process, The_command_line_of_this_program_is_what_it_was_given) {
    const std::string whole = GetCommandLineA();
    const auto given = Win32Process().commandLine();
    EXPECT_TRUE(whole.ends_with(given));
    EXPECT_FALSE(given.starts_with(' '));
    EXPECT_FALSE(given.contains("contract_tests")) << given;
}

TEST(Win32Process, The_program_lies_in_its_folder) {
    EXPECT_NE(
        Win32Files().firstNormalFile(Win32Process().programFolder() + R"(\contract_tests.exe)"),
        "");
}

TEST_F(Win32, A_name_in_a_batch_file_is_the_name_that_the_user_sees) {
    const auto& interpreter = platform->interpreter();
    put("a.bat", "@echo off\r\necho x> " +
                     interpreter.batchText('"' + in("caf\xE9 \xFC.txt") + '"') + "\r\n");
    platform->interpreter().startHidden(in("a.bat"));
    EXPECT_TRUE(appears("caf\xE9 \xFC.txt"));
}

TEST_F(Win32, A_request_to_quit_stays_for_the_program_itself) {
    bool ran = false;
    platform->post([&] { ran = true; });
    PostQuitMessage(7);
    platform->events().letRun();
    EXPECT_TRUE(ran);
    MSG message{};
    EXPECT_NE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE), 0);
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7U);
}

// Somebody has a file open until there has been the third pause between two attempts.
class LookedAtFiles : public Win32Files {
  public:
    explicit LookedAtFiles(std::shared_ptr<void> looking) : looking_(std::move(looking)) {}
    int pauses = 0;

  private:
    void pauseBetweenAttempts() noexcept override {
        if (++pauses == 3) {
            looking_.reset();
        }
    }
    std::shared_ptr<void> looking_;
};

TEST_F(Win32, A_file_that_somebody_looks_at_for_a_moment_is_replaced_all_the_same) {
    for (const std::string_view used : {"old.txt", "new.txt"}) {
        SCOPED_TRACE(used);
        put("new.txt", "new");
        put("old.txt", "old");
        LookedAtFiles lookedAt(platform->keep(in(used)));
        EXPECT_EQ(raisedBy([&] { lookedAt.moveOver(in("new.txt"), in("old.txt")); }), 0);
        EXPECT_EQ(lookedAt.pauses, 3);
        EXPECT_EQ(get("old.txt"), "new");
    }
}

TEST_F(Win32, A_file_that_somebody_looks_at_for_a_moment_is_removed_and_emptied_all_the_same) {
    for (const bool removed : {false, true}) {
        SCOPED_TRACE(removed);
        put("a.txt", "old");
        LookedAtFiles lookedAt(platform->keep(in("a.txt")));
        EXPECT_EQ(raisedBy([&] {
                      if (removed) {
                          lookedAt.remove(in("a.txt"));
                      } else {
                          lookedAt.create(in("a.txt"))->close();
                      }
                  }),
                  0);
        EXPECT_EQ(lookedAt.pauses, 3);
        EXPECT_EQ(exists("a.txt"), !removed);
    }
}

TEST_F(Win32, A_filter_that_deals_with_a_message_keeps_it_from_its_window) {
    class TakeEvents : public MessageFilter {
      public:
        bool handles(MSG& message) override {
            if (message.message != eventMessage) {
                return false;
            }
            takeEvent(message.lParam);
            ++taken;
            return true;
        }
        int taken = 0;
    };
    TakeEvents filter;
    Win32PendingEvents events(&filter);
    bool ran = false;
    platform->post([&] { ran = true; });
    events.letRun();
    EXPECT_EQ(filter.taken, 1);
    EXPECT_FALSE(ran);
}

} // namespace

std::unique_ptr<PlatformUnderTest> makePlatformUnderTest() {
    return std::make_unique<Win32Platform>();
}

} // namespace tarnwick
