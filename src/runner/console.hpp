#pragma once

#include "platform/terminal.hpp"
#include "platform/tool_paths.hpp"
#include "runner/progress_line.hpp"
#include "runner/run_clock.hpp"
#include "runner/run_observer.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

enum class Colour : std::uint8_t { Auto, Always, Never };

struct ConsoleStyle {
    bool quiet = false;   // failures only
    bool verbose = false; // each command, and what it said
    Colour colour = Colour::Auto;
    bool noColour = false; // the user's environment asks for none
};

// Shows a run to the user: on a terminal a line at its bottom, above which failures scroll by; else
// a line every ten seconds. Results go to the output stream, all else to the error stream. Refers
// to terminal and clock.
class Console final : public RunObserver {
  public:
    Console(Terminal& terminal, const RunClock& clock, const ConsoleStyle& style,
            std::string logPath);

    // A sentence for the user, at once.
    void complain(std::string_view sentence);

    // A result, unless the user wants to hear of failures only.
    void tell(std::string_view sentence);

    void planned(const Job& job, const Products& products, const Plan& plan) override;
    void started(std::string_view record) override;
    void finished(const RecordOutcome& outcome) override;
    void ending(bool now, Interruption why) override;
    void stopped() override;
    void idle() override;
    void ended(const RunSummary& summary) override;

  private:
    void say(std::string_view text);
    void showCalls(const RecordOutcome& outcome);
    void draw(bool atOnce);
    void erase();
    [[nodiscard]] std::string red(std::string_view text) const;

    Terminal& terminal_;
    const RunClock& clock_;
    ConsoleStyle style_;
    std::string logPath_;
    bool onTerminal_;
    bool coloured_;
    Progress progress_;
    double begun_ = 0;
    double drawn_ = 0; // when the line was drawn or written last
    bool lineIsShown_ = false;
};

} // namespace tarnwick
