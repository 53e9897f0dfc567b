#include "processing/commands/tool_command.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using Kind = ToolArgument::Kind;

TEST(ToolCommand, A_command_becomes_a_call_with_its_paths_in_quotation_marks) {
    EXPECT_EQ(batchLine({.tool = "C:\\My Tools\\mp.exe",
                         .arguments = {{Kind::Word, "-c"},
                                       {Kind::Settings, "C:\\a b.cfg"},
                                       {Kind::Word, "-e"},
                                       {Kind::Output, "D:\\o\\r.err"},
                                       {Kind::Input, "D:\\i\\r.met"}}}),
              R"(call "C:\My Tools\mp.exe" -c "C:\a b.cfg" -e "D:\o\r.err" "D:\i\r.met")");
}

TEST(ToolCommand, A_command_that_was_not_begun_is_still_a_line) {
    EXPECT_EQ(batchLine({}), "call \"\"");
}

} // namespace
} // namespace tarnwick
