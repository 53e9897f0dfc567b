#include "demo/tools/tool_files.hpp"
#include "tool_test.hpp"

namespace demo {
namespace {

class Configuration : public ToolTest {
  protected:
    void expectLineRefused(const std::string& content, int line) {
        write("tools.cfg", content);
        EXPECT_EQ(mp({"-c", path("tools.cfg"), "-l", "en", path("a.met")}), 1) << content;
        EXPECT_EQ(errors().substr(0, errors().find('\n')),
                  "mp: \"" + path("tools.cfg") + "\", line " + std::to_string(line) +
                      ": this is no entry of a configuration file")
            << content;
    }
};

TEST_F(Configuration, Input_and_outputs_are_found_by_a_bare_file_name_and_serve_both_tools) {
    std::filesystem::create_directories(path("in put"));
    std::filesystem::create_directories(path("out"));
    write("in put/rec.met", std::string(smallRecord));
    write("tools.cfg", "# folders\n\nINPUT\r\n  Folder \"" + path("in put") +
                           "\"\r\n Output\r\n  html " + path("out") + " .htm\r\n  ERROR \"" +
                           path("out") + "/\"\r\n  faq " + path("out") + "\n\tleftovers " +
                           path("out") + "\n");
    EXPECT_EQ(mp({"-c", path("tools.cfg"), "-l", "en", "rec.met"}), 0);
    EXPECT_EQ(errors(), "");
    EXPECT_EQ(read("out/rec.err"),
              "Errors found in \"" + path("in put/rec.met") + "\"\r\nErrors: 0. Warnings: 0.\r\n");
    EXPECT_NE(read("out/rec.htm").find("HREF=\"" + path("out/rec_faq.htm") + "\""),
              std::string::npos);
    EXPECT_TRUE(exists("out/rec_faq.htm"));
    EXPECT_FALSE(exists("out/rec.lft"));
    EXPECT_EQ(cns({"-c", path("tools.cfg"), "-l", "en", "-o", path("in put/rec.met"), "rec.met"}),
              0);
    EXPECT_EQ(read("out/rec.lft"), "Lines of \"" + path("in put/rec.met") +
                                       "\" that have no place\r\nLines left over: 0.\r\n");
    EXPECT_EQ(read("in put/rec.met"), crlf(smallRecord)); // over its own input
}

TEST_F(Configuration, An_output_of_the_command_line_comes_before_the_configured_one) {
    write("a.met", std::string(smallRecord));
    write("tools.cfg", "output\n text " + path("") + "\n xml " + path("") + "\n");
    EXPECT_EQ(mp({"-c", path("tools.cfg"), "-l", "en", "-t", path("b.txt"), path("a.met")}), 0);
    EXPECT_TRUE(exists("b.txt"));
    EXPECT_FALSE(exists("a.txt"));
    EXPECT_TRUE(exists("a.xml"));
}

TEST_F(Configuration, An_input_with_a_folder_stays_where_it_is) {
    write("a.met", std::string(smallRecord));
    write("tools.cfg", "input\n folder " + path("elsewhere") + "\n");
    EXPECT_EQ(mp({"-c", path("tools.cfg"), "-l", "en", path("a.met")}), 0);
}

TEST_F(Configuration, A_line_that_is_no_entry_is_told_by_its_number) {
    write("a.met", std::string(smallRecord));
    expectLineRefused("html out\n", 1);
    expectLineRefused("output\n\n  html\n", 3);
    expectLineRefused("output\n  html a .b c\n", 2);
    expectLineRefused("output\n  html \"a\n", 2);
    expectLineRefused("output\n  picture a\n", 2);
    expectLineRefused("output\n  folder a\n", 2);
    expectLineRefused("input\n  html a\n", 2);
    expectLineRefused("input\n  folder a b\n", 2);
    expectLineRefused("output_dir\n", 1);
}

TEST_F(Configuration, A_configuration_file_that_is_not_there_ends_the_tool_with_status_2) {
    EXPECT_EQ(mp({"-c", path("tools.cfg"), "-l", "en", "a"}), 2);
    EXPECT_EQ(errors(), "mp: cannot read \"" + path("tools.cfg") + "\"\n");
}

TEST(ConfiguredFolder, Is_joined_to_a_name_by_the_separator_that_it_uses) {
    EXPECT_EQ(inFolder("D:\\out", "a.err"), "D:\\out\\a.err");
    EXPECT_EQ(inFolder("D:\\out\\", "a.err"), "D:\\out\\a.err");
    EXPECT_EQ(inFolder("/out", "a.err"), "/out/a.err");
    EXPECT_EQ(inFolder("/out/", "a.err"), "/out/a.err");
    EXPECT_EQ(inFolder("out", "a.err"), "out\\a.err");
    EXPECT_EQ(inFolder("", "a.err"), "a.err");
    EXPECT_TRUE(isBareName("caf\xE9 1.met"));
    EXPECT_FALSE(isBareName("D:a"));
    EXPECT_FALSE(isBareName("\\a"));
    EXPECT_FALSE(isBareName("./a"));
}

} // namespace
} // namespace demo
