// The contracts on the build machine, and what only this implementation promises.

#include "contract/contract_fixture.hpp"
#include "contract/real_time.hpp"
#include "platform/hosted/code_page_437.hpp"
#include "platform/hosted/hosted_clock.hpp"
#include "platform/hosted/hosted_command_interpreter.hpp"
#include "platform/hosted/hosted_open_files.hpp"
#include "platform/hosted/hosted_pending_events.hpp"
#include "platform/hosted/hosted_process.hpp"
#include "platform/hosted/hosted_settings_store.hpp"
#include "support/eventually.hpp"
#include "support/hosted_world.hpp"

#include <iconv.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

class HostedPlatform : public PlatformInRealTime {
  public:
    HostedPlatform() { world_.makeFolder(R"(C:\scratch)"); }

    Files& files() override { return world_.files(); }
    [[nodiscard]] std::string scratch() const override { return R"(C:\scratch)"; }
    [[nodiscard]] std::string currentFolder() const override { return R"(C:\Work Folder)"; }
    std::string emptyDrive() override {
        world_.makeDrive('E');
        return "E:";
    }
    std::string otherVolume() override {
        world_.makeDrive('O');
        world_.makeFolder(R"(O:\scratch)");
        return R"(O:\scratch)";
    }
    [[nodiscard]] std::string missingDrive() const override { return "Q:"; }
    void hide(const std::string& path) override { world_.hide(path); }
    void makeSystem(const std::string& path) override { world_.hide(path); }
    void keepFromOthers(const std::string& path) override {
        std::filesystem::permissions(libraryPath(path), std::filesystem::perms::owner_read |
                                                            std::filesystem::perms::owner_write);
    }
    [[nodiscard]] std::string rightsTo(const std::string& path) const override {
        const auto rights = std::filesystem::status(libraryPath(path)).permissions();
        return std::to_string(static_cast<unsigned>(rights));
    }
    void makeReadOnly(const std::string& path) override { world_.makeReadOnly(path); }
    Files& filesWithoutShortNames() override { return world_.files(); }
    std::string makeNameless(const std::string& folder, const std::string& end) override {
        std::ofstream(world_.files().hostPath(folder) + "/\x81" + end);
        return "<U+0081>" + end;
    }
    std::shared_ptr<void> keep(const std::string& path) override {
        return std::make_shared<FileDescriptor>(openExclusively(world_.files().hostPath(path)));
    }
    [[nodiscard]] std::string libraryPath(const std::string& path) const override {
        return world_.files().hostPath(path);
    }
    SettingsStore& settings() override { return settings_; }
    [[nodiscard]] std::string application() const override { return "Contract Test"; }
    Process& process() override { return process_; }
    void setVariable(const std::string& name, const std::string& value) override {
        ::setenv(name.c_str(), value.c_str(), 1); // NOLINT(concurrency-mt-unsafe)
    }
    CommandInterpreter& interpreter() override { return interpreter_; }
    [[nodiscard]] std::string batchThatWaits(const std::string& signal,
                                             const std::string& marker) const override {
        return "while ! test -e '" + libraryPath(signal) + "'; do sleep 0.05; done\n" +
               "echo done > '" + libraryPath(marker) + "'\n";
    }
    Clock& clock() override { return clock_; }
    PendingEvents& events() override { return events_; }
    void post(std::function<void()> event) override { events_.post(std::move(event)); }

  private:
    HostedWorld world_{R"(C:\Work Folder)"};
    TemporaryFolder settingsFolder_;
    HostedSettingsStore settings_{settingsFolder_.hostPath() + "/settings"};
    HostedProcess process_{"-I a.ini", R"(C:\Program Files\Tarnwick)"};
    HostedCommandInterpreter interpreter_{world_.files(), {"sh"}};
    HostedClock clock_;
    HostedPendingEvents events_;
};

TEST(HostedFiles, A_folder_that_may_not_be_listed_raises_75) {
    HostedWorld world;
    world.write(R"(C:\closed\a.txt)", "abc");
    world.makeUnlistable(R"(C:\closed)");
    EXPECT_FALSE(world.files().canListFolder(R"(C:\closed)"));
    EXPECT_EQ(raisedBy([&] { return world.files().listFiles(R"(C:\closed)", "").names; }), 75);
    EXPECT_EQ(raisedBy([&] { return world.files().listFolders(R"(C:\closed)").names; }), 75);
}

TEST(HostedFiles, A_name_spelled_alike_goes_before_one_in_other_case) {
    const HostedWorld world;
    const fs::path drive = fs::path(world.drivesRoot()) / "c";
    std::ofstream(drive / "NAME.txt") << "upper";
    std::ofstream(drive / "name.txt") << "lower";
    EXPECT_EQ(world.read(R"(C:\name.txt)"), "lower");
    EXPECT_EQ(world.read(R"(C:\NAME.txt)"), "upper");
    EXPECT_EQ(world.read(R"(C:\Name.TXT)"), "upper");
}

TEST(HostedFiles, The_list_of_hidden_and_system_files_is_never_shown) {
    HostedWorld world;
    world.write(R"(C:\a.txt)", "");
    world.hide(R"(C:\a.txt)");
    EXPECT_EQ(world.files().listFiles("C:", "").names, Names{});
    EXPECT_EQ(world.files().firstNormalFile(R"(C:\.hidden)"), "");
}

TEST(HostedFiles, A_pipe_is_no_file_and_nobody_waits_for_it) {
    HostedWorld world;
    ASSERT_EQ(::mkfifo((world.drivesRoot() + "/c/pipe").c_str(), 0600), 0);
    EXPECT_EQ(world.files().listFiles("C:", "").names, Names{});
    EXPECT_EQ(world.files().firstNormalFile(R"(C:\pipe)"), "");
    EXPECT_EQ(raisedBy([&] { return world.files().openForReading(R"(C:\pipe)"); }), 75);
    EXPECT_EQ(raisedBy([&] { return world.files().create(R"(C:\pipe)"); }), 75);
}

TEST(HostedFiles, A_new_file_that_turns_out_unusable_is_not_left_behind) {
    HostedWorld world;
    const mode_t mask = ::umask(0222); // what is made now may not be written
    EXPECT_EQ(raisedBy([&] { return world.files().createNew(R"(C:\new.txt)"); }), 75);
    ::umask(mask);
    EXPECT_FALSE(world.exists(R"(C:\new.txt)"));
}

TEST(HostedFiles, Links_are_what_they_point_to) {
    HostedWorld world;
    world.write(R"(C:\folder\a.txt)", "abc");
    const fs::path drive = fs::path(world.drivesRoot()) / "c";
    fs::create_symlink("folder/a.txt", drive / "file link");
    fs::create_symlink("folder", drive / "folder link");
    fs::create_symlink("nowhere", drive / "dead link");
    EXPECT_EQ(world.files().listFiles("C:", "").names, Names{"file link"});
    EXPECT_EQ(world.files().listFolders("C:").names, (Names{"folder", "folder link"}));
    EXPECT_EQ(world.read(R"(C:\Folder Link\a.txt)"), "abc");
}

TEST(HostedFiles, Blanks_and_dots_behind_a_name_are_no_part_of_it) {
    HostedWorld world;
    world.write(R"(C:\a.txt)", "abc");
    EXPECT_EQ(world.read(R"(C:\a.txt. .)"), "abc");
    EXPECT_EQ(world.read("C:/a.txt "), "abc");
    EXPECT_TRUE(world.files().canListFolder(R"(C:\   )"));
}

TEST(HostedFiles, Nothing_leads_out_of_a_drive) {
    HostedWorld world;
    world.write(R"(C:\a.txt)", "abc");
    EXPECT_EQ(world.read(R"(C:\..\..\x\..\a.txt)"), "abc");
    EXPECT_EQ(world.read(R"(\a.txt)"), "abc");
    EXPECT_EQ(world.read(R"(\\?\C:\a.txt)"), "abc");
    EXPECT_EQ(world.read("C:a.txt"), "abc");
}

// What a process sees that may write no file longer than 1000 bytes: to us, a full disk.
bool aFullDiskRaises61() {
    HostedWorld world;
    std::signal(SIGXFSZ, SIG_IGN); // NOLINT(cert-err33-c)
    const rlimit thousandBytes{.rlim_cur = 1000, .rlim_max = 1000};
    const auto file = world.files().create(R"(C:\a.txt)");
    if (::setrlimit(RLIMIT_FSIZE, &thousandBytes) != 0) {
        return false;
    }
    const std::string bytes(50000, 'x');
    bool told = raisedBy([&] { file->write(bytes); }) == 0; // gathered as yet
    told = told && raisedBy([&] { file->write(bytes); }) == 61;
    told = told && raisedBy([&] { file->flush(); }) == 61;
    told = told && raisedBy([&] { file->close(); }) == 61;
    told = told && raisedBy([&] { file->close(); }) == 0;
    told = told && world.read(R"(C:\a.txt)") == bytes.substr(0, 1000);
    return told && raisedBy([&] { world.files().remove(R"(C:\a.txt)"); }) == 0;
}

TEST(HostedFiles, A_full_disk_raises_61_and_the_file_is_closed_all_the_same) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(aFullDiskRaises61() ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST(HostedSettingsStore, A_store_that_cannot_be_written_raises_75_and_keeps_the_older_value) {
    const TemporaryFolder folder;
    const auto file = folder.hostPath() + "/settings";
    HostedSettingsStore store(file);
    store.write("A", "S", "k", "old");
    fs::create_directory(file + ".new"); // where the new store would be prepared
    EXPECT_EQ(raisedBy([&] { store.write("A", "S", "k", "new"); }), 75);
    EXPECT_EQ(store.read("A", "S", "k", ""), "old");
    HostedSettingsStore nowhere(folder.hostPath() + "/missing/settings");
    EXPECT_EQ(raisedBy([&] { nowhere.write("A", "S", "k", "new"); }), 75);
    EXPECT_EQ(nowhere.read("A", "S", "k", "fallback"), "fallback");
}

TEST(HostedSettingsStore, A_store_that_cannot_be_read_gives_the_fallback) {
    const TemporaryFolder folder;
    HostedSettingsStore store(folder.hostPath());
    EXPECT_EQ(store.read("A", "S", "k", "fallback"), "fallback");
    EXPECT_EQ(raisedBy([&] { store.write("A", "S", "k", "new"); }), 75);
}

TEST(HostedProcess, Command_line_and_folder_are_those_given) {
    const HostedProcess process("-I a.ini", R"(C:\Tarnwick)");
    EXPECT_EQ(process.commandLine(), "-I a.ini");
    EXPECT_EQ(process.programFolder(), R"(C:\Tarnwick)");
}

TEST(HostedCommandInterpreter, An_interpreter_that_is_not_there_raises_75) {
    HostedWorld world;
    world.write(R"(C:\a.bat)", "");
    HostedCommandInterpreter interpreter(world.files(), {"/no/such/interpreter"});
    EXPECT_EQ(raisedBy([&] { interpreter.startHidden(R"(C:\a.bat)"); }), 75);
}

TEST(HostedCommandInterpreter, A_batch_goes_on_when_the_program_ends) {
    HostedWorld world;
    const auto signal = world.drivesRoot() + "/c/signal";
    const auto marker = world.drivesRoot() + "/c/marker";
    world.write(R"(C:\a.bat)", "while ! test -e '" + signal + "'; do sleep 0.05; done\n" +
                                   "echo done > '" + marker + "'\n");
    const pid_t child = ::fork();
    if (child == 0) {
        HostedCommandInterpreter(world.files(), {"sh"}).startHidden(R"(C:\a.bat)");
        ::_exit(0);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    world.write(R"(C:\signal)", "");
    EXPECT_TRUE(eventually([&] { return world.exists(R"(C:\marker)"); }));
}

TEST(HostedCommandInterpreter, No_process_is_left_to_wait_for) {
    HostedWorld world;
    world.write(R"(C:\a.bat)", "exit 0\n");
    HostedCommandInterpreter(world.files(), {"sh"}).startHidden(R"(C:\a.bat)");
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1); // no child at all
}

// The same conversion by the C library; nothing where it has none.
std::optional<std::string> convertedByLibrary(std::string text) {
    iconv_t conversion = ::iconv_open("CP437", "CP1252");
    std::array<char, 8> converted{};
    char* from = text.data();
    std::size_t fromLeft = text.size();
    char* to = converted.data();
    std::size_t toLeft = converted.size();
    const auto result = ::iconv(conversion, &from, &fromLeft, &to, &toLeft);
    ::iconv_close(conversion);
    if (result != 0) {
        return std::nullopt;
    }
    return std::string(converted.data(), converted.size() - toLeft);
}

TEST(CodePage437, Every_character_is_converted_as_the_C_library_does) {
    int converted = 0;
    for (int code = 1; code < 256; ++code) {
        const std::string text(1, static_cast<char>(code));
        EXPECT_EQ(inCodePage437(text), convertedByLibrary(text)) << code;
        converted += inCodePage437(text) ? 1 : 0;
    }
    EXPECT_EQ(converted, 127 + 54);
}

} // namespace

std::unique_ptr<PlatformUnderTest> makePlatformUnderTest() {
    return std::make_unique<HostedPlatform>();
}

} // namespace tarnwick
