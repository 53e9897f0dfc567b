#include "contract/tool_stub_system.hpp"

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

namespace tarnwick::test {

unsigned long ownProcess() {
    return static_cast<unsigned long>(getpid());
}

void writeBytesAsTheyAre() {}

void startSelf(const Arguments& arguments) {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe").string();
    std::vector<std::string> words{self};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    if (fork() == 0) {
        execv(self.c_str(), pointers.data());
        _exit(98);
    }
}

void crash() {
    static_cast<void>(std::signal(SIGTRAP, SIG_DFL));
    static_cast<void>(std::raise(SIGTRAP));
    std::exit(97);
}

} // namespace tarnwick::test
