#include "runner/record_outcome.hpp"

#include "runner/number_text.hpp"
#include "runner/visible_text.hpp"

#include <cstring>
#include <system_error>

namespace tarnwick {
namespace {

std::string endText(const CallOutcome& outcome) {
    using enum ToolEnd::Kind;
    const ToolEnd& end = outcome.end;
    switch (end.kind) {
    case Exited:
        return "ended with status " + std::to_string(end.code);
    case Signalled:
        return "was ended by signal " + std::to_string(end.code);
    case TimedOut:
        return "took longer than " + numberText(outcome.call.timeLimit.value_or(0)) +
               " s and was ended";
    case Halted:
        return "was interrupted";
    case NotStarted:
        return "could not be started: " +
               std::system_category().message(static_cast<int>(end.code));
    }
    return {};
}

} // namespace

bool wasAskedToEnd(const RecordOutcome& outcome) {
    constexpr std::int64_t sigterm = 15;
    return !outcome.calls.empty() && outcome.calls.back().end.kind == ToolEnd::Kind::Signalled &&
           outcome.calls.back().end.code == sigterm;
}

std::string failureText(const CallOutcome& outcome) {
    std::string text = std::string(nameOf(outcome.tool)) + " " + endText(outcome);
    const std::string said = lastLineOf(outcome.end.said);
    return said.empty() ? text : text.append(": ").append(said);
}

} // namespace tarnwick
