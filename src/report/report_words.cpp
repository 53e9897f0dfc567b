#include "report/report_words.hpp"

#include "runner/number_text.hpp"

#include <algorithm>
#include <cmath>

namespace tarnwick {

std::string_view stateWord(ReportedRecord::State state) noexcept {
    switch (state) {
    case ReportedRecord::State::Made:
        return "made";
    case ReportedRecord::State::UpToDate:
        return "up to date";
    case ReportedRecord::State::Failed:
        return "failed";
    case ReportedRecord::State::NotRun:
        break;
    }
    return "not run";
}

std::string grouped(std::uint64_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t place = digits.size(); place > 3; place -= 3) {
        digits.insert(place - 3, ",");
    }
    return digits;
}

std::string counted(std::uint64_t number, std::string_view one, std::string_view many) {
    const std::string text = grouped(number) + " ";
    if (number == 1) {
        return text + std::string(one);
    }
    return text + (many.empty() ? std::string(one) + "s" : std::string(many));
}

bool isDateAndTime(std::string_view text) noexcept {
    constexpr std::string_view pattern = "0000-00-00T00:00:00Z";
    return std::ranges::equal(text, pattern, [](char character, char wanted) {
        return wanted == '0' ? character >= '0' && character <= '9' : character == wanted;
    });
}

double sensibleSeconds(double seconds) noexcept {
    return std::isfinite(seconds) && seconds > 0 ? seconds : 0;
}

std::string secondsText(double seconds) {
    return numberText(sensibleSeconds(seconds), 3);
}

double secondsOf(const ReportedRecord& record) noexcept {
    double seconds = 0;
    for (const ReportedCall& call : record.calls) {
        seconds += call.seconds;
    }
    return seconds;
}

FindingCounts findingsOf(const RunReport& report, const ReportedRecord& record) {
    FindingCounts counts{.shapes = 0, .messages = record.messagesLeftOut};
    for (const Finding& finding : record.findings) {
        if (!report.shapes.at(finding.shape).common) {
            ++counts.shapes;
            counts.messages += finding.messages;
        }
    }
    return counts;
}

std::string callsText(const ReportedRecord& record) {
    std::string text;
    for (const ReportedCall& call : record.calls) {
        text.append(text.empty() ? "" : "; ").append(call.tool).append(" ");
        text.append(std::to_string(call.code)).append(" in ");
        text.append(secondsText(call.seconds)).append(" s");
    }
    return text;
}

} // namespace tarnwick
