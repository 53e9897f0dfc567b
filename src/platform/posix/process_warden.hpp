#pragma once

#include "platform/posix/file_descriptor.hpp"

#include <sys/types.h>

#include <atomic>
#include <cstddef>

namespace tarnwick {

// A small process beside this one that does one thing: when this process is gone, in whatever way,
// it ends the groups of processes that were at work. It hears of that by a pipe that only this
// process holds open, and finds them in memory that both share: it is never woken in between.
class ProcessWarden {
  public:
    // To be made before there are threads. Where no such process can be made, groups outlive us,
    // but for their first processes.
    ProcessWarden();
    ProcessWarden(const ProcessWarden&) = delete;
    ProcessWarden& operator=(const ProcessWarden&) = delete;
    ProcessWarden(ProcessWarden&&) = delete;
    ProcessWarden& operator=(ProcessWarden&&) = delete;
    ~ProcessWarden();

    // A place for one group: 0 in it is none. From several threads. Null where all are taken.
    [[nodiscard]] std::atomic<pid_t>* takePlace() noexcept;
    // Where no group is left.
    void givePlaceBack(std::atomic<pid_t>* place) noexcept;

  private:
    static constexpr std::size_t places = 1024;
    static constexpr pid_t taken = -1;

    void keepWatch(const FileDescriptor& pipe) noexcept;

    std::atomic<pid_t>* groups_ = nullptr; // shared with the other process; `places` of them
    FileDescriptor life_;                  // its closing is what the warden waits for
    pid_t warden_ = -1;
};

} // namespace tarnwick
