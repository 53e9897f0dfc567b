#include "findings.hpp"

#include "common/text.hpp"

#include <algorithm>
#include <utility>

namespace demo {

void Findings::error(std::size_t line, Message message,
                     std::initializer_list<std::string_view> values) {
    add({.line = line, .isError = true, .text = say(language_, message, values)});
}

void Findings::warning(std::size_t line, Message message,
                       std::initializer_list<std::string_view> values) {
    add({.line = line, .isError = false, .text = say(language_, message, values)});
}

void Findings::error(std::string text) {
    add({.line = 0, .isError = true, .text = std::move(text)});
}

void Findings::add(Finding finding) {
    ++(finding.isError ? errors_ : warnings_);
    if (findings_.size() < listed) {
        findings_.push_back(std::move(finding));
    }
}

std::string Findings::sentence(const Finding& finding) const {
    if (finding.line == 0) {
        return say(language_, Message::ErrorInRecord, {finding.text});
    }
    return say(language_, finding.isError ? Message::ErrorAtLine : Message::WarningAtLine,
               {std::to_string(finding.line), finding.text});
}

std::string Findings::report(std::string_view inputPath) const {
    auto sorted = findings_;
    // Line 0 minus 1 is the greatest number that there is.
    std::ranges::stable_sort(sorted, {}, [](const auto& finding) { return finding.line - 1; });
    std::string out = say(language_, Message::ReportHeading, {inputPath});
    out += tarnwick::lineEnd;
    for (const auto& finding : sorted) {
        out.append(sentence(finding)).append(tarnwick::lineEnd);
    }
    if (errors_ + warnings_ > listed) {
        out += say(language_, Message::ReportCut, {std::to_string(listed)});
        out += tarnwick::lineEnd;
    }
    out += say(language_, Message::ReportSummary,
               {std::to_string(errors_), std::to_string(warnings_)});
    return out.append(tarnwick::lineEnd);
}

} // namespace demo
