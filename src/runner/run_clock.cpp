#include "runner/run_clock.hpp"

#include <chrono>

namespace tarnwick {

double SystemRunClock::steadySeconds() const {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

namespace {

std::string twoDigits(long long number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

} // namespace

std::string SystemRunClock::dateAndTime() const {
    using namespace std::chrono;
    const auto now = floor<seconds>(system_clock::now());
    const auto day = floor<days>(now);
    const year_month_day date(day);
    const hh_mm_ss time(now - day);
    return std::to_string(static_cast<int>(date.year())) + "-" +
           twoDigits(static_cast<unsigned>(date.month())) + "-" +
           twoDigits(static_cast<unsigned>(date.day())) + "T" + twoDigits(time.hours().count()) +
           ":" + twoDigits(time.minutes().count()) + ":" + twoDigits(time.seconds().count()) + "Z";
}

} // namespace tarnwick
