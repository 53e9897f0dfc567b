#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tarnwick {

// A program of this machine, started with its output in files. Killed with this object.
class StartedProgram {
  public:
    // `outputs` is the beginning of the names of both files. Raises std::system_error.
    StartedProgram(std::vector<std::string> words, const std::string& outputs);
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;
    StartedProgram(StartedProgram&&) = delete;
    StartedProgram& operator=(StartedProgram&&) = delete;
    ~StartedProgram();

    // Nothing where it has been waited for.
    void send(int signal) const;
    [[nodiscard]] bool hasEnded();
    // Waits; its exit status, or the negative number of the signal that ended it.
    int wait();

  private:
    pid_t process_ = -1; // -1 once it has been waited for
    int status_ = 0;
};

// Whether a process of that number is there, and no mere remainder that nobody has asked for.
[[nodiscard]] bool isAlive(pid_t process);

} // namespace tarnwick
