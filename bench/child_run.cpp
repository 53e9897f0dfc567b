#include "child_run.hpp"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <exception>
#include <iostream>

namespace tarnwick {

Cost costOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        try {
            work();
            ::_exit(0);
        } catch (const std::exception& error) {
            std::cerr << error.what() << '\n';
            ::_exit(1);
        }
    }
    int status = -1;
    rusage usage{};
    if (::wait4(child, &status, 0, &usage) != child || status != 0) {
        std::cerr << "A run has failed.\n";
        std::exit(1); // NOLINT(concurrency-mt-unsafe)
    }
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    return {.seconds = passed.count(), .peakKilobytes = usage.ru_maxrss};
}

Cost costOf(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    for (const std::string& word : command) {
        arguments.push_back(const_cast<char*>(word.c_str())); // NOLINT: execvp does not change it
    }
    arguments.push_back(nullptr);
    return costOf([&] {
        ::execvp(arguments.front(), arguments.data());
        std::cerr << "cannot start " << command.front() << '\n';
        ::_exit(127);
    });
}

} // namespace tarnwick
