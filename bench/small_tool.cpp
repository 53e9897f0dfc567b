// A tool for measuring what is around it: writes one small file where the argument behind -e says.
// With TARNWICK_TOOL_MILLISECONDS it computes for so long before, with TARNWICK_TOOL_SLEEP it
// sleeps for so many seconds.

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <span>
#include <thread>

namespace {

long numberIn(const char* variable) {
    const char* const text = std::getenv(variable);
    return text == nullptr ? 0 : std::strtol(text, nullptr, 10);
}

// By the processor's time, so that it is as much work however busy the machine is.
void compute(long milliseconds) {
    const auto end = std::clock() + milliseconds * CLOCKS_PER_SEC / 1000;
    while (std::clock() < end) {
    }
}

} // namespace

int main(int count, char** arguments) {
    std::this_thread::sleep_for(std::chrono::seconds(numberIn("TARNWICK_TOOL_SLEEP")));
    compute(numberIn("TARNWICK_TOOL_MILLISECONDS"));
    const std::span words(arguments, static_cast<std::size_t>(count));
    for (std::size_t place = 0; place + 1 < words.size(); ++place) {
        if (std::strcmp(words[place], "-e") == 0) {
            std::ofstream(words[place + 1]) << "No errors\n";
        }
    }
    return 0;
}
