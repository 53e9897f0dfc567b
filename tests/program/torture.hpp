#pragma once

#include <chrono>
#include <random>

namespace tarnwick::test {

// How often a work is ended: as often as TARNWICK_TORTURE in the environment says, else that often.
// Throws where it is no number of times.
[[nodiscard]] int endings(int usually);

// Random moments of a work, each time other ones. TARNWICK_SEED in the environment gives the same
// parts of the time that the work takes as an earlier time: which seed it was stands in the test's
// output.
class RandomMoments {
  public:
    RandomMoments();

    // Sleeps for a random part of `longest`.
    void waitWithin(std::chrono::microseconds longest);

  private:
    std::mt19937 random_;
};

// Says how many of the endings came in the middle of the work. Of many, one at least must have:
// else nothing was tried.
void expectSomeInTheMiddle(int count, int endings);

} // namespace tarnwick::test
