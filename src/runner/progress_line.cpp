#include "runner/progress_line.hpp"

#include "runner/number_text.hpp"
#include "runner/visible_text.hpp"

#include <algorithm>
#include <cmath>

namespace tarnwick {
namespace {

constexpr std::size_t barWidth = 20;
constexpr double minute = 60;
constexpr double hour = 3600;

std::string bar(const Progress& progress) {
    const auto full = progress.all == 0 ? barWidth : barWidth * progress.done / progress.all;
    std::string text = "[" + std::string(full, '=');
    if (full < barWidth) {
        text += '>' + std::string(barWidth - full - 1, ' ');
    }
    return text + "]";
}

std::string perSecond(double rate) {
    return numberText(rate, rate < 10 ? 1 : 0) + "/s";
}

std::string names(const Progress& progress) {
    std::string text;
    for (const std::string& name : progress.inWork) {
        text.append(text.empty() ? "" : ", ").append(visibleText(name));
    }
    return text;
}

} // namespace

std::string durationText(double seconds) {
    const auto whole = [](double number) { return std::to_string(static_cast<long long>(number)); };
    constexpr double exact = 10; // with a digit behind the point
    if (seconds < exact) {
        return numberText(std::max(seconds, 0.0), 1) + " s";
    }
    if (seconds < minute) {
        return whole(seconds) + " s";
    }
    if (seconds < hour) {
        return whole(seconds / minute) + " min " + whole(std::fmod(seconds, minute)) + " s";
    }
    return whole(seconds / hour) + " h " + whole(std::fmod(seconds, hour) / minute) + " min";
}

std::string progressLine(const Progress& progress, std::size_t width) {
    std::vector<std::string> parts{std::to_string(progress.done) + "/" +
                                       std::to_string(progress.all),
                                   std::to_string(progress.failed) + " failed"};
    if (progress.done > 0 && progress.seconds > 0) {
        const double rate = static_cast<double>(progress.done) / progress.seconds;
        parts.push_back(perSecond(rate));
        parts.push_back(
            progress.ending
                ? "ending"
                : durationText(static_cast<double>(progress.all - progress.done) / rate) + " left");
    }
    parts.push_back(names(progress));

    std::string line;
    if (width >= barWidth + 2 + 2 + parts.front().size()) {
        line = bar(progress) + "  ";
    }
    line += parts.front();
    for (auto part = parts.begin() + 1; part != parts.end() && !part->empty(); ++part) {
        const bool isLast = part + 1 == parts.end();
        if (line.size() + 2 + (isLast ? 4 : part->size()) > width) {
            break;
        }
        line.append("  ").append(shortened(*part, width - line.size() - 2));
    }
    return shortened(line, width);
}

} // namespace tarnwick
