#include "runner_program/started_program.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <iterator>
#include <system_error>

namespace tarnwick {

StartedProgram::StartedProgram(std::vector<std::string> words, const std::string& outputs) {
    posix_spawn_file_actions_t actions{};
    ::posix_spawn_file_actions_init(&actions);
    constexpr int create = O_WRONLY | O_CREAT | O_TRUNC; // NOLINT(*-signed-bitwise): the system's
    ::posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, 1, (outputs + ".out").c_str(), create, 0644);
    ::posix_spawn_file_actions_addopen(&actions, 2, (outputs + ".err").c_str(), create, 0644);
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    const int error = ::posix_spawnp(&process_, arguments.front(), &actions, nullptr,
                                     arguments.data(), ::environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        process_ = -1;
        throw std::system_error(error, std::system_category(), words.front());
    }
}

StartedProgram::~StartedProgram() {
    if (process_ > 0) {
        send(SIGKILL);
        wait();
    }
}

void StartedProgram::send(int signal) const {
    if (process_ > 0) { // of -1 the system would think that everybody is meant
        ::kill(process_, signal);
    }
}

bool StartedProgram::hasEnded() {
    if (process_ > 0 && ::waitpid(process_, &status_, WNOHANG) == process_) {
        process_ = -1;
    }
    return process_ < 0;
}

int StartedProgram::wait() {
    while (process_ > 0 && ::waitpid(process_, &status_, 0) < 0 && errno == EINTR) {
    }
    process_ = -1;
    return WIFEXITED(status_) ? WEXITSTATUS(status_) : -WTERMSIG(status_);
}

bool isAlive(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const auto state = text.rfind(") ");
    return state != std::string::npos && text[state + 2] != 'Z' && text[state + 2] != 'X';
}

} // namespace tarnwick
