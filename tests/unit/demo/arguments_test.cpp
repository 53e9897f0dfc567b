#include "demo/tools/messages.hpp"
#include "tool_test.hpp"

namespace demo {
namespace {

constexpr std::string_view mpUsage =
    "mp [-c configuration] -l language [-e errors] [-t text] [-h html] [-f faq] [-s sgml] [-x xml] "
    "[-d dif] [-fixdoc] input\n";
constexpr std::string_view cnsUsage =
    "cns [-c configuration] -l language [-a aliases] [-v] [-i info] [-e leftovers] -o output "
    "input\n";

class Arguments : public ToolTest {
  protected:
    void expectMpRefuses(const std::vector<std::string>& arguments, const std::string& text) {
        EXPECT_EQ(mp(arguments), 1);
        EXPECT_EQ(errors(), "mp: " + text + "\nusage: " + std::string(mpUsage));
    }
    void expectCnsRefuses(const std::vector<std::string>& arguments, const std::string& text) {
        EXPECT_EQ(cns(arguments), 1);
        EXPECT_EQ(errors(), "cns: " + text + "\nusage: " + std::string(cnsUsage));
    }
};

TEST_F(Arguments, Each_bad_command_line_is_told_with_the_usage_and_status_1) {
    expectMpRefuses({}, R"(the option "-l" is missing)");
    expectMpRefuses({"-l", "en"}, "no input file is given");
    expectMpRefuses({"-l"}, R"(the option "-l" needs a value)");
    expectMpRefuses({"-l", "en", "-e"}, R"(the option "-e" needs a value)");
    expectMpRefuses({"-l", "en", "-e", "-t", "a.txt", "a"}, R"(the option "-e" needs a value)");
    expectMpRefuses({"-l", "en", "-q", "a"}, R"(unknown option "-q")");
    expectMpRefuses({"-l", "en", "-o", "a.out", "a"}, R"(unknown option "-o")");
    expectMpRefuses({"-l", "en", "-e", "1", "-e", "2", "a"}, R"(the option "-e" is given twice)");
    expectMpRefuses({"-l", "en", "Foo", "a.foo", "a"},
                    R"(more than one input file is given: "a.foo")");
    expectCnsRefuses({"-l", "en", "a"}, R"(the option "-o" is missing)");
    expectCnsRefuses({"-l", "en", "-o", "a.cns"}, "no input file is given");
    expectCnsRefuses({"-l", "en", "-o", "a.cns", "-fixdoc", "a"}, R"(unknown option "-fixdoc")");
}

TEST_F(Arguments, A_refused_command_line_writes_nothing) {
    write("a.met", std::string(smallRecord));
    EXPECT_EQ(mp({"-l", "en", "-e", path("a.err"), "-q", path("a.met")}), 1);
    EXPECT_FALSE(exists("a.err"));
}

TEST_F(Arguments, What_is_wrong_is_told_in_the_language_asked_for_wherever_it_stands) {
    EXPECT_EQ(mp({"-q", "-l", "fr"}), 1);
    EXPECT_EQ(errors(), "mp: option inconnue \"-q\"\nsyntaxe : " + std::string(mpUsage));
    EXPECT_EQ(cns({"-q", "-l", "id"}), 1);
    EXPECT_EQ(errors(), "cns: pilihan \"-q\" tidak dikenal\npemakaian: " + std::string(cnsUsage));
}

TEST_F(Arguments, Without_messages_in_a_language_English_serves_and_a_warning_says_so) {
    write("a.met", std::string(smallRecord));
    EXPECT_EQ(mp({"-l", "German", "-e", path("a.err"), path("a.met")}), 0);
    EXPECT_EQ(errors(), "mp: warning: there are no messages in the language \"German\"; English is "
                        "used\n");
    EXPECT_EQ(read("a.err"),
              "Errors found in \"" + path("a.met") + "\"\r\nErrors: 0. Warnings: 0.\r\n");
}

TEST_F(Arguments, An_input_that_cannot_be_read_ends_mp_with_status_2_and_is_in_the_report) {
    EXPECT_EQ(mp({"-l", "es", "-e", path("a.err"), "-x", path("a.xml"), path("a.met")}), 2);
    EXPECT_EQ(errors(), "mp: no se puede leer \"" + path("a.met") + "\"\n");
    EXPECT_EQ(read("a.err"), "Errores encontrados en \"" + path("a.met") +
                                 "\"\r\nRegistro: error: no se puede leer \"" + path("a.met") +
                                 "\"\r\nErrores: 1. Avisos: 0.\r\n");
    EXPECT_FALSE(exists("a.xml"));
}

TEST_F(Arguments, A_folder_as_input_cannot_be_read) {
    EXPECT_EQ(mp({"-l", "en", path("")}), 2);
    EXPECT_EQ(errors(), "mp: cannot read \"" + path("") + "\"\n");
    EXPECT_EQ(cns({"-l", "en", "-o", path("a.cns"), path("")}), 2);
    EXPECT_EQ(errors(), "cns: cannot read \"" + path("") + "\"\n");
    EXPECT_FALSE(exists("a.cns"));
    EXPECT_EQ(mp({"-l", "en", ""}), 2);
    EXPECT_EQ(errors(), "mp: cannot read \"\"\n");
}

TEST_F(Arguments, An_output_that_cannot_be_written_costs_status_3_and_not_the_others) {
    write("a.met", std::string(smallRecord));
    const auto missing = path("missing/a.txt");
    EXPECT_EQ(mp({"-l", "en", "-t", missing, "-x", path("a.xml"), path("a.met")}), 3);
    EXPECT_EQ(errors(), "mp: cannot write \"" + missing + "\"\n");
    EXPECT_TRUE(exists("a.xml"));
    EXPECT_EQ(cns({"-l", "ca", "-e", path("a.lft"), "-o", missing, path("a.met")}), 3);
    EXPECT_EQ(errors(), "cns: no es pot escriure \"" + missing + "\"\n");
    EXPECT_TRUE(exists("a.lft"));
}

TEST_F(Arguments, A_name_with_a_blank_and_a_letter_beyond_ASCII_reaches_the_file) {
    write("caf\xE9 1.met", std::string(smallRecord));
    EXPECT_EQ(mp({"-l", "en", "-t", path("caf\xE9 1.txt"), path("caf\xE9 1.met")}), 0);
    EXPECT_EQ(errors(), "");
    EXPECT_EQ(read("caf\xE9 1.txt"), crlf(smallRecord));
}

} // namespace
} // namespace demo
