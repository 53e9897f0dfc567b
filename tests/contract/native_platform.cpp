// The contracts for what stands in the place of the platform in most tests: files of the build
// machine, and fakes for the rest.

#include "contract/contract_fixture.hpp"
#include "support/fake_clock.hpp"
#include "support/fake_command_interpreter.hpp"
#include "support/fake_process.hpp"
#include "support/forwarding_files.hpp"
#include "support/hosted_world.hpp"
#include "support/memory_settings_store.hpp"

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <utility>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

// The fake interpreter runs nothing: before anybody looks at a file, the batch goes on here.
class FilesBesideABatch : public ForwardingFiles {
  public:
    FilesBesideABatch(Files& files, std::function<void()> batch)
        : ForwardingFiles(files), batch_(std::move(batch)) {}
    [[nodiscard]] std::string firstNormalFile(std::string_view path) const override {
        batch_();
        return ForwardingFiles::firstNormalFile(path);
    }

  private:
    std::function<void()> batch_;
};

class NativePlatform final : public PlatformUnderTest {
  public:
    NativePlatform() {
        world_.makeFolder(scratch());
        interpreter_.run = [this](const FakeCommandInterpreter::Started&) { running_ = true; };
        interpreter_.hasEnded = [this] { return !running_; };
    }

    Files& files() override { return files_; }
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
    void makeReadOnly(const std::string& path) override { world_.makeReadOnly(path); }
    void keepFromOthers(const std::string& path) override {
        fs::permissions(libraryPath(path), fs::perms::owner_read | fs::perms::owner_write);
    }
    [[nodiscard]] std::string rightsTo(const std::string& path) const override {
        return std::to_string(static_cast<unsigned>(fs::status(libraryPath(path)).permissions()));
    }
    Files& filesWithoutShortNames() override { return files_; }
    std::string makeNameless(const std::string& folder, const std::string& end) override {
        const std::ofstream made(libraryPath(folder) + "/\x81" + end);
        return "<U+0081>" + end;
    }
    std::shared_ptr<void> keep(const std::string& path) override {
        return std::make_shared<FileDescriptor>(world_.files().openExclusively(path));
    }
    [[nodiscard]] std::string libraryPath(const std::string& path) const override {
        return world_.files().hostPath(path);
    }
    SettingsStore& settings() override { return settings_; }
    [[nodiscard]] std::string application() const override { return "Contract Test"; }
    Process& process() override { return process_; }
    void setVariable(const std::string& name, const std::string& value) override {
        process_.variables[upperCase(name)] = value;
    }
    CommandInterpreter& interpreter() override { return interpreter_; }
    [[nodiscard]] std::string batchThatWaits(const std::string& signal,
                                             const std::string& marker) const override {
        signal_ = signal;
        marker_ = marker;
        return "for goOn";
    }
    Clock& clock() override { return clock_; }
    PendingEvents& events() override { return events_; }
    void letPass(double seconds) override { clock_.advance(seconds); }
    void post(std::function<void()> event) override { events_.post(std::move(event)); }
    void postDuring(std::function<void()> event, const std::function<void()>& wait) override {
        post(std::move(event));
        wait();
    }

  private:
    void goOn() {
        if (running_ && world_.exists(signal_)) {
            world_.write(marker_, "");
            running_ = false;
        }
    }

    HostedWorld world_{R"(C:\Work Folder)", TemporaryFolder::Place::OnDisk};
    bool running_ = false;
    mutable std::string signal_;
    mutable std::string marker_;
    FilesBesideABatch files_{world_.files(), [this] { goOn(); }};
    MemorySettingsStore settings_;
    FakeProcess process_;
    FakeCommandInterpreter interpreter_{files_};
    FakeClock clock_;
    FakePendingEvents events_{clock_};
};

} // namespace

std::unique_ptr<PlatformUnderTest> makePlatformUnderTest() {
    ::umask(022); // what is made is open to others, whoever runs the tests
    return std::make_unique<NativePlatform>();
}

} // namespace tarnwick
