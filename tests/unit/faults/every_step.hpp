#pragma once

#include "platform/run_time_error.hpp"
#include "support/hosted_world.hpp"
#include "support/scripted_desktop.hpp"
#include "support/watched_files.hpp"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarnwick {

// A file system that counts the calls and breaks one of them.
class StepFiles : public WatchedFiles {
  public:
    struct Call {
        FileOperation operation = FileOperation::CanListFolder;
        std::string path;
    };

    // Refers to `files`, which must outlive it.
    explicit StepFiles(Files& files);

    // Counts from here on, and the bytes of that volume alone ("D:"), or of all; breaks nothing.
    void count(std::string_view volume = {});
    // Counts from here on; the call of that number, from 0, raises `error`.
    void breakCall(std::size_t number, ErrorNumber error);
    // Counts from here on; that volume, or all, has room for so many bytes more (see FaultyFiles).
    void fillDiskAfter(std::size_t bytes, std::string_view volume);

    [[nodiscard]] const std::vector<Call>& calls() const noexcept;
    [[nodiscard]] std::size_t bytesWritten() const noexcept;

  private:
    class Plan;
    StepFiles(Files& files, std::shared_ptr<Plan> plan);

    std::shared_ptr<Plan> plan_;
};

// Something that users do, on a machine of its own, which the constructor prepares.
class UseCase {
  public:
    UseCase() = default;
    UseCase(const UseCase&) = delete;
    UseCase& operator=(const UseCase&) = delete;
    virtual ~UseCase() = default;

    // Done once; done again, it gives the same.
    virtual void act() = 0;
    // What the program holds afterwards, as text to compare.
    [[nodiscard]] virtual std::string state() { return {}; }

    HostedWorld world;
    StepFiles files{world.files()};
    ScriptedDesktop desktop;
    // Files that may also hold something else for a while, whole all the same: what another program
    // wrote.
    std::vector<std::pair<std::string, std::string>> alsoWhole;
    // Files that are written where they lie, on purpose: they may end early.
    std::vector<std::string> writtenInPlace;
    // How many reports a disk that stays full may cause: more than one where an error ends one step
    // and the next one, which meets the same disk, begins all the same.
    std::size_t reportsOfFullDisk = 1;
    // Whether the user is told, too, where what the program asks for is not there.
    bool answersAreTold = false;
    // Whether it makes a file under another name where its own is taken.
    bool takesAnotherName = false;
};

using MakeUseCase = std::function<std::unique_ptr<UseCase>()>;

// Does it once unbroken, and then once for each file-system call of that and each error which the
// call may raise by its contract, with that call broken. Holds each time:
//
//   - every file that was there before is as it was or as the unbroken use case leaves it, and so
//     is every file that it makes, unless the next time clears it away; and so is the state;
//   - where anything is not as the unbroken use case leaves it, the user was told, exactly once;
//   - done again, unbroken, it leaves what it always leaves.
//
// Where the call only asks whether something exists, it then does not: what the program makes of
// that is its own rule, and not always told, unless the use case says so. Held is then that nothing
// is told twice, that no file is there which is there neither before nor afterwards as a rule,
// unless the next time clears it away, and that it leaves what it always leaves when done again.
void breakEveryStep(const MakeUseCase& make);

// The same with the disk full after 0, 1, 2, ... bytes of what the use case writes: that volume
// ("D:"), or all of them together. The user is told at least once, and nothing twice.
void fillDiskAtEveryByte(const MakeUseCase& make, std::string_view volume = {});

} // namespace tarnwick
