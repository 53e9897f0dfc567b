#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <iomanip>
#include <iostream>
#include <string_view>
#include <vector>

namespace tarnwick {

// The times of several rounds of the same work, in milliseconds.
class Timing {
  public:
    template <typename Work>
    void measure(Work&& work) {
        const auto start = std::chrono::steady_clock::now();
        static_cast<Work&&>(work)();
        add(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                .count());
    }
    void add(double milliseconds) { rounds_.push_back(milliseconds); }

    // At least one round has been measured.
    [[nodiscard]] double median() const {
        std::vector<double> sorted = rounds_;
        std::ranges::sort(sorted);
        return sorted[sorted.size() / 2];
    }

  private:
    std::vector<double> rounds_;
};

// One line: what, its time, the other way's time, how many times that is, and how many it may be.
inline void printRatio(std::string_view what, double time, double other, double limit) {
    std::cout << std::left << std::setw(52) << what << std::right << std::fixed
              << std::setprecision(1) << std::setw(9) << time << std::setw(9) << other
              << std::setprecision(2) << std::setw(8) << time / other << "  (at most " << limit
              << ")" << (time / other > limit ? "  EXCEEDED" : "") << '\n';
}

} // namespace tarnwick
