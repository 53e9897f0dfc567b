#include "runner/console.hpp"

#include "runner/call_text.hpp"
#include "runner/visible_text.hpp"

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

constexpr double betweenDrawings = 0.1; // seconds
constexpr double betweenLines = 10;     // likewise, where no terminal is
constexpr std::string_view backToStart = "\r\x1B[K";

bool isColoured(Colour colour, bool noColour, bool onTerminal) {
    return colour == Colour::Always || (colour == Colour::Auto && onTerminal && !noColour);
}

std::string counted(std::size_t number, std::string_view what) {
    return std::to_string(number).append(" ").append(what);
}

} // namespace

Console::Console(Terminal& terminal, const RunClock& clock, const ConsoleStyle& style,
                 std::string logPath)
    : terminal_(terminal),
      clock_(clock),
      style_(style),
      logPath_(std::move(logPath)),
      onTerminal_(terminal.isTerminal(Stream::Error)),
      coloured_(isColoured(style.colour, style.noColour, onTerminal_)) {}

void Console::complain(std::string_view sentence) {
    say("tarnwick-run: " + visibleText(sentence));
}

void Console::tell(std::string_view sentence) {
    if (!style_.quiet) {
        terminal_.write(Stream::Output, visibleText(sentence) + "\n");
    }
}

void Console::planned(const Job& job, const Products& /*products*/, const Plan& plan) {
    begun_ = clock_.steadySeconds();
    drawn_ = begun_;
    progress_.all = plan.toRun.size();
    for (const auto& [name, why] : job.refused) {
        say(red("FAILED") + " " + visibleText(name) + ": " + visibleText(why));
    }
    draw(true);
}

void Console::started(std::string_view record) {
    progress_.inWork.emplace_back(record);
    draw(false);
}

void Console::finished(const RecordOutcome& outcome) {
    std::erase(progress_.inWork, outcome.record);
    ++progress_.done;
    if (style_.verbose) {
        showCalls(outcome);
    }
    if (outcome.result == RecordOutcome::Result::Failed) {
        ++progress_.failed;
        say(red("FAILED") + " " + visibleText(outcome.record) + ": " + visibleText(outcome.why));
    }
    draw(false);
}

void Console::showCalls(const RecordOutcome& outcome) {
    for (const CallOutcome& call : outcome.calls) {
        say(visibleText(shellLine(call.call)));
        std::string_view said = call.end.said;
        while (!said.empty()) {
            const auto line = said.substr(0, said.find('\n'));
            say("  " + visibleText(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line));
            said.remove_prefix(std::min(line.size() + 1, said.size()));
        }
    }
}

void Console::ending(bool now, Interruption why) {
    progress_.ending = true;
    if (now) {
        complain("Ending the running tools.");
    } else if (why == Interruption::Asked) {
        complain("Nothing more is begun; the running tools may end. Once more (Ctrl+C) ends them.");
    } else {
        complain("Nothing more is begun; the running tools may end while there is time.");
    }
    draw(true);
}

void Console::stopped() {
    progress_.ending = true;
    complain("Nothing more is begun: so many records have failed. The running tools may end.");
}

void Console::idle() {
    draw(false);
}

void Console::ended(const RunSummary& summary) {
    erase();
    if (!summary.logFault.empty()) {
        complain("The run was ended, because its log cannot be written: " + summary.logFault + ".");
    }
    if (style_.quiet) {
        return;
    }
    std::string text = counted(summary.made, "made, ") + counted(summary.failed, "failed, ") +
                       counted(summary.upToDate, "up to date");
    if (summary.notRun > 0) {
        text += ", " + counted(summary.notRun, "not run");
    }
    terminal_.write(Stream::Output, text + ", in " + durationText(summary.seconds) +
                                        ".\nThe log is " + visibleText(logPath_) + "\n");
}

// Above the line at the bottom.
void Console::say(std::string_view text) {
    erase();
    terminal_.write(Stream::Error, std::string(text) + "\n");
}

void Console::draw(bool atOnce) {
    const double now = clock_.steadySeconds();
    const double pause = onTerminal_ ? betweenDrawings : betweenLines;
    if (style_.quiet || progress_.all == 0 ||
        (now - drawn_ < pause && !(atOnce && onTerminal_) && (lineIsShown_ || !onTerminal_))) {
        return;
    }
    drawn_ = now;
    progress_.seconds = now - begun_;
    const int width = onTerminal_ ? terminal_.width() - 1 : 100;
    const std::string line = progressLine(progress_, static_cast<std::size_t>(std::max(width, 10)));
    if (onTerminal_) {
        terminal_.write(Stream::Error, std::string(backToStart) + line);
        lineIsShown_ = true;
    } else {
        terminal_.write(Stream::Error, line + "\n");
    }
}

void Console::erase() {
    if (std::exchange(lineIsShown_, false)) {
        terminal_.write(Stream::Error, backToStart);
    }
}

std::string Console::red(std::string_view text) const {
    return coloured_ ? "\x1B[31m" + std::string(text) + "\x1B[0m" : std::string(text);
}

} // namespace tarnwick
