#include "program/torture.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <string>
#include <thread>

namespace tarnwick::test {
namespace {

// Throws where it is no number from `least` on.
unsigned long numberIn(const char* variable, const char* text, unsigned long least) {
    char* end = nullptr;
    const unsigned long number = std::strtoul(text, &end, 10);
    if (end == text || *end != '\0' || number < least || number > std::numeric_limits<int>::max()) {
        throw std::runtime_error(std::string(variable) + " is no number: " + text);
    }
    return number;
}

unsigned seed() {
    const char* const asked = std::getenv("TARNWICK_SEED");
    const auto chosen = asked == nullptr
                            ? std::random_device()() & std::numeric_limits<int>::max()
                            : static_cast<unsigned>(numberIn("TARNWICK_SEED", asked, 0));
    std::cout << "TARNWICK_SEED=" << chosen << '\n' << std::flush; // before anything can fail
    return chosen;
}

} // namespace

int endings(int usually) {
    const char* const asked = std::getenv("TARNWICK_TORTURE");
    return asked == nullptr ? usually : static_cast<int>(numberIn("TARNWICK_TORTURE", asked, 1));
}

RandomMoments::RandomMoments() : random_(seed()) {}

void RandomMoments::waitWithin(std::chrono::microseconds longest) {
    std::uniform_int_distribution<long long> moment(0, longest.count());
    std::this_thread::sleep_for(std::chrono::microseconds(moment(random_)));
}

void expectSomeInTheMiddle(int count, int endings) {
    constexpr int many = 100; // so that chance alone fails nothing: a moment in ten will do
    std::cout << count << " of " << endings << " in the middle of the work\n";
    if (endings >= many) {
        EXPECT_GT(count, 0) << "no ending came in the middle of the work";
    }
}

} // namespace tarnwick::test
