// Interruptions and Terminal: seen from outside a program that uses them.

#include "contract/contract_fixture.hpp"
#include "contract/runner_platform.hpp"

namespace tarnwick {
namespace {

class ConsoleContract : public ContractTest {
  protected:
    // What the program says whose streams are no terminal.
    [[nodiscard]] std::string said(std::vector<std::string> arguments) const {
        const ToolEnd end =
            makeToolProcesses()->run({.program = runner->program("runner_stub"),
                                      .arguments = std::move(arguments),
                                      .folder = platform->libraryPath(platform->scratch()),
                                      .timeLimit = {}});
        EXPECT_EQ(end.kind, ToolEnd::Kind::Exited);
        EXPECT_EQ(end.code, 0);
        return end.said;
    }

    std::unique_ptr<RunnerPlatform> runner = makeRunnerPlatform(*platform);
};

TEST_F(ConsoleContract, An_interruption_is_heard_and_ends_nothing_by_itself) {
    EXPECT_EQ(said({"listen", "ask"}), "asked ");
    EXPECT_EQ(said({"listen", "order"}), "ordered ");
}

TEST_F(ConsoleContract, Every_interruption_is_heard) {
    EXPECT_EQ(said({"listen", "ask", "ask", "order"}), "asked asked ordered ");
}

TEST_F(ConsoleContract, Nobody_needs_to_interrupt) {
    EXPECT_EQ(said({"listen"}), "");
}

TEST_F(ConsoleContract, What_goes_to_no_terminal_goes_as_it_is) {
    EXPECT_EQ(said({"show"}), std::string("caf\xE9\ncaf\xE9\n80\0\n", 14));
}

TEST_F(ConsoleContract, What_nobody_takes_is_told_from_then_on) {
    EXPECT_EQ(said({"show_nobody"}), "still heard 3");
}

} // namespace
} // namespace tarnwick
