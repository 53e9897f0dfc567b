#pragma once

#include "platform/posix/posix_file_stamps.hpp"
#include "platform/posix/posix_process_locks.hpp"
#include "platform/posix/posix_tool_paths.hpp"
#include "runner/run_command.hpp"
#include "support/hosted_world.hpp"

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace tarnwick {

inline ToolEnd toolEnd(ToolEnd::Kind kind, std::int64_t code = 0, std::string said = {}) {
    return {.kind = kind, .code = code, .seconds = 0, .said = std::move(said)};
}
inline ToolEnd exited(std::int64_t code, std::string said = {}) {
    return toolEnd(ToolEnd::Kind::Exited, code, std::move(said));
}

// A tool as the tests want it: `act` does what it would do, on the thread of the call.
class FakeToolProcesses final : public ToolProcesses {
  public:
    std::function<ToolEnd(const ToolCall& call)> act;

    [[nodiscard]] ToolEnd run(const ToolCall& call) override {
        {
            const std::scoped_lock lock(mutex_);
            if (halted_) {
                return toolEnd(ToolEnd::Kind::Halted);
            }
            calls_.push_back(call);
        }
        return act(call);
    }
    void halt() noexcept override {
        const std::scoped_lock lock(mutex_);
        halted_ = true;
    }

    [[nodiscard]] std::vector<ToolCall> calls() const {
        const std::scoped_lock lock(mutex_);
        return calls_;
    }
    [[nodiscard]] bool isHalted() const {
        const std::scoped_lock lock(mutex_);
        return halted_;
    }
    void forget() {
        const std::scoped_lock lock(mutex_);
        calls_.clear();
    }

  private:
    mutable std::mutex mutex_;
    std::vector<ToolCall> calls_;
    bool halted_ = false;
};

class FakeRunClock final : public RunClock {
  public:
    double now = 1000;
    std::function<void()> asked = [] {}; // when somebody wants to know the time

    [[nodiscard]] double steadySeconds() const override {
        asked();
        return now;
    }
    [[nodiscard]] std::string dateAndTime() const override { return date; }

    std::string date = "2026-11-22T01:02:03Z";
};

// Interrupts when the test says so.
class FakeInterruptions final : public Interruptions {
  public:
    void listen(std::function<void(Interruption)> heard) override { heard_ = std::move(heard); }
    void interrupt(Interruption interruption) const { heard_(interruption); }

  private:
    std::function<void(Interruption)> heard_;
};

class RecordingTerminal final : public Terminal {
  public:
    bool terminal = false;
    int columns = 80;
    std::string output;
    std::string error;

    [[nodiscard]] bool isTerminal(Stream /*stream*/) const override { return terminal; }
    [[nodiscard]] int width() const override { return columns; }
    bool write(Stream stream, std::string_view text) override {
        (stream == Stream::Output ? output : error) += text;
        return true;
    }
};

// A machine with tools, a definition and folders; its tools do what they should unless a test says
// otherwise: CNS copies, MP writes "TYPE of RECORD" into every output.
class RunnerWorld {
  public:
    RunnerWorld() {
        for (const char* const folder : {R"(C:\in)", R"(C:\out)", R"(C:\tools)", R"(C:\job)"}) {
            world.makeFolder(folder);
        }
        world.write(R"(C:\tools\mp.exe)", "mp");
        world.write(R"(C:\tools\cns.exe)", "cns");
        MyDefaultSettings(definition);
        definition.sAppFolder = R"(C:\job\)";
        definition.sMPExecutable = R"(C:\tools\mp.exe)";
        definition.sCNSExecutable = R"(C:\tools\cns.exe)";
        definition.sInputFolder = R"(C:\in)";
        definition.sInputExtensions = "*.met";
        definition.sCNSOutputFolder = R"(C:\out)";
        for (OutputDefinition& row : definition.MPOutputs) {
            row.bBuild = row.sFileType == "Error" || row.sFileType == "Html";
            row.sOutputFolder = row.bBuild ? R"(C:\out)" : "";
        }
        request.stateFolder = R"(C:\job\night.state)";
        request.holder = "process 1 on HERE";
        request.settings.jobs = 2;
        processes.act = [this](const ToolCall& call) { return work(call); };
    }

    // Writes what the arguments ask for; the content says of what it was made.
    [[nodiscard]] ToolEnd work(const ToolCall& call) const {
        const std::string record = call.arguments.back();
        for (std::size_t place = 0; place + 2 < call.arguments.size(); ++place) {
            const std::string& option = call.arguments[place];
            if (option.starts_with('-') && option != "-l" && option != "-c" && option != "-a") {
                writeHost(call.arguments[place + 1], option + " of " + lastName(record));
            }
        }
        return exited(0);
    }

    ExitStatus run() {
        RunnerServices services{.files = *files,
                                .stamps = stamps,
                                .paths = paths,
                                .processes = processes,
                                .locks = locks,
                                .interruptions = interruptions,
                                .terminal = terminal,
                                .clock = clock,
                                .canStart = [](const std::string&) { return true; }};
        return runDefinition(definition, request, services);
    }

    void writeRecord(const std::string& name, std::string_view text = "record") {
        world.write(R"(C:\in\)" + name, text);
    }
    [[nodiscard]] std::string log() const { return world.read(R"(C:\job\night.state\run.log)"); }

    [[nodiscard]] static std::string lastName(const std::string& hostPath) {
        return hostPath.substr(hostPath.rfind('/') + 1);
    }
    static void writeHost(const std::string& path, std::string_view text);
    // Over what is there, as who holds a lock does: a reader never finds nothing.
    static void overwriteHost(const std::string& path, std::string_view text);
    // Makes the file look as if it had been written so many seconds ago.
    void makeOlder(std::string_view path, int seconds);

    HostedWorld world;
    Files* files = &world.files(); // a test may put another before it
    Mounts mounts = Mounts::below(world.drivesRoot());
    PosixFileStamps stamps{mounts, R"(C:\)"};
    PosixToolPaths paths{mounts, R"(C:\)"};
    PosixProcessLocks locks{mounts, R"(C:\)"};
    FakeToolProcesses processes;
    FakeInterruptions interruptions;
    RecordingTerminal terminal;
    FakeRunClock clock;
    BatchDefinition definition;
    RunRequest request;
};

} // namespace tarnwick
