#include "platform/hosted/hosted_clock.hpp"

#include <array>
#include <chrono>
#include <clocale>
#include <ctime>
#include <memory>
#include <type_traits>

namespace tarnwick {
namespace {

std::tm localTime(std::time_t time) {
    std::tm local{};
    static_cast<void>(::localtime_r(&time, &local)); // no time of this clock is out of its range
    return local;
}

struct LocaleFreer {
    void operator()(locale_t locale) const noexcept { ::freelocale(locale); }
};
using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, LocaleFreer>;

// Now, in the user's language; English where the user has none on this machine.
std::string formatted(const char* format) {
    Locale locale(::newlocale(LC_TIME_MASK, "", nullptr));
    if (!locale) {
        locale.reset(::newlocale(LC_TIME_MASK, "C", nullptr));
    }
    const auto local = localTime(std::time(nullptr));
    std::array<char, 256> text{};
    const auto length = ::strftime_l(text.data(), text.size(), format, &local, locale.get());
    return {text.data(), length};
}

} // namespace

double HostedClock::steadySeconds() const {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

std::string HostedClock::longDate() const {
    return formatted("%A, %e %B %Y");
}

std::string HostedClock::longTime() const {
    return formatted("%X");
}

} // namespace tarnwick
