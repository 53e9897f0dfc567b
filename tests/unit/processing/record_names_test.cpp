// A record's name is data: in none of the three ways to run a batch does it become anything else.
#include "processing/batch_export.hpp"
#include "processing/commands/record_names.hpp"
#include "support/odd_files.hpp"
#include "support/outputs.hpp"
#include "unit/processing/run_world.hpp"
#include "unit/processing/unattended_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// Each with what would make it more than a name.
const std::vector<std::string> oddNames{"\"&md pwned&\".met",
                                        "a\nmd pwned\n.met",
                                        "b>c.met",
                                        "d<e.met",
                                        "f|g.met",
                                        "*.met",
                                        "h?.met",
                                        "i:j.met",
                                        "..\\k.met",
                                        "l\x7Fm.met",
                                        "n\ro.met",
                                        "p\tq.met",
                                        "%~z.met"};

const std::string leftOutOfThem =
    "13 records are left out: their names cannot stand in a command.\r\n"
    "The first of them is \"\"&md pwned&\".met\".";

TEST(RecordNames, A_name_of_letters_and_of_what_windows_allows_stays_a_name) {
    for (const char* name : {"a.met", "caf\xE9 1.met", "R&D (2) !'`,;=+[]{}~#@$.met", "\x80\x81"}) {
        EXPECT_TRUE(staysName(name)) << name;
    }
}

TEST(RecordNames, What_ends_a_quoted_word_or_leads_elsewhere_is_no_name) {
    EXPECT_FALSE(staysName(""));
    for (const std::string& name : oddNames) {
        EXPECT_FALSE(staysName(name)) << name;
    }
    for (int code = 0; code < 256; ++code) {
        const char character = static_cast<char>(code);
        const bool refused =
            code < 0x20 || code == 0x7F || std::string_view("\"%^<>|*?:/\\").contains(character);
        EXPECT_EQ(staysName(std::string("a") + character), !refused) << code;
    }
}

TEST(RecordNames, What_the_system_opens_as_something_else_leads_elsewhere) {
    for (const char* name :
         {"a.met.", "a.met ", "a. .", "CON", "con.met", "Nul .met", "prn.a.met", "AUX",
          "conin$.met", "CONOUT$", "com1.met", "LPT9", "com\xB9.met", "lpt\xB3"}) {
        EXPECT_TRUE(leadsElsewhere(name)) << name;
    }
    for (const char* name :
         {"a.met", ".met", " a.met", "a .met", "console.met", "con1.met", "a.con", "com.met",
          "com0.met", "com10.met", "lpta.met", "x com1.met"}) {
        EXPECT_FALSE(leadsElsewhere(name)) << name;
    }
}

TEST(RecordNames, What_leads_elsewhere_is_refused) {
    std::vector<std::string> records{"b.met.", "b.met", "nul.met"};
    EXPECT_EQ(refuseUnsafeNames(records), (LeftOut{.count = 2, .first = "b.met."}));
    EXPECT_THAT(records, ElementsAre("b.met"));
}

TEST(RecordNames, The_refused_ones_are_counted_and_the_first_by_name_is_shown) {
    std::vector<std::string> records{"b.met", "z\n.met", "a.met", "m\x07.met"};
    const LeftOut refused = refuseUnsafeNames(records);
    EXPECT_THAT(records, ElementsAre("b.met", "a.met"));
    EXPECT_EQ(refused, (LeftOut{.count = 2, .first = "m<U+0007>.met"}));
}

TEST(RecordNames, Where_the_tools_get_bare_names_none_may_look_like_an_option) {
    BatchDefinition definition;
    std::vector<std::string> records{"-fixdoc", "a.met"};
    EXPECT_EQ(refuseUnsafe(definition, records), Refused{});
    EXPECT_EQ(records.size(), 2U);
    definition.bCfgNamesOutput = true;
    EXPECT_EQ(refuseUnsafe(definition, records).records.first, "-fixdoc");
    EXPECT_EQ(records, std::vector<std::string>{"a.met"});
}

struct UnattendedRecordNames : UnattendedWorld {
    void putOddRecords() {
        for (const std::string& name : oddNames) {
            if (name.find('/') == std::string::npos) {
                putOddFile(world, 'd', "meta/in", name);
            }
        }
    }
};

TEST_F(UnattendedRecordNames, No_command_is_written_for_a_name_that_would_be_more_than_one) {
    const std::string before = batchOf("-I C:\\batch.ini");
    interpreter.started.clear();
    world.files().remove("C:\\temp\\MP_CL.bat");
    putOddRecords();
    std::size_t startedBeforeMessage = 0;
    desktop.whileShown = [&](const Message&) { startedBeforeMessage = interpreter.started.size(); };
    EXPECT_EQ(run("-I C:\\batch.ini"), UnattendedResult::BatchStarted);
    ASSERT_EQ(interpreter.started.size(), 1U);
    EXPECT_EQ(interpreter.started.front().content, before);
    EXPECT_THAT(desktop.messages, ElementsAre(warning(leftOutOfThem)));
    EXPECT_EQ(startedBeforeMessage, 1U);
}

TEST_F(UnattendedRecordNames, Where_no_other_record_is_left_nothing_is_started) {
    world.makeFolder("D:\\odd");
    putOddFile(world, 'd', "odd", oddNames.front());
    EXPECT_EQ(run("-I C:\\batch.ini -F D:\\odd"), UnattendedResult::NothingStarted);
    EXPECT_THAT(interpreter.started, IsEmpty());
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The record \"\"&md pwned&\".met\" is left out: its name "
                                    "cannot stand in a command.")));
}

TEST_F(UnattendedRecordNames, Files_without_a_name_are_told_once_and_after_the_start) {
    putOddFile(world, 'd', "other", "\x81.met");
    std::size_t startedBeforeMessage = 0;
    desktop.whileShown = [&](const Message&) { startedBeforeMessage = interpreter.started.size(); };
    EXPECT_EQ(run("-I C:\\batch.ini -F D:\\other"), UnattendedResult::BatchStarted);
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The file \"<U+0081>.met\" in the folder \"D:\\other\" is left "
                                    "out: its name has no place in the system's code page.")));
    EXPECT_EQ(startedBeforeMessage, 1U);
}

TEST_F(UnattendedRecordNames, Where_no_file_has_a_name_both_is_told) {
    world.makeFolder("D:\\odd");
    putOddFile(world, 'd', "odd", "\x81.met");
    putOddFile(world, 'd', "odd", "a\x8D.met");
    EXPECT_EQ(run("-I C:\\batch.ini -F D:\\odd"), UnattendedResult::NothingStarted);
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("2 files in the folder \"D:\\odd\" are left out: their names "
                                    "have no place in the system's code page.\r\n"
                                    "The first of them is \"<U+0081>.met\"."),
                            warning("No files found in folder \"D:\\odd\".")));
}

TEST_F(UnattendedRecordNames, A_folder_that_the_system_can_name_only_by_numbers_is_not_replaced) {
    expectWarning("-I C:\\batch.ini -F \"D:\\<U+0416>\"",
                  "The folder \"D:\\<U+0416>\" has no name in the system's code page.");
}

TEST_F(UnattendedRecordNames, No_command_names_a_product_with_a_percent_sign_in_its_path) {
    world.makeFolder("D:\\100%");
    storeDefinition("Xml Extension=.%b\r\nGRID_Xml=D:\\out\r\nGRID_Text=D:\\100%\r\n"
                    "GRID_Leftovers=D:\\100%\r\n");
    EXPECT_EQ(run("-I C:\\batch.ini"), UnattendedResult::BatchStarted);
    ASSERT_EQ(interpreter.started.size(), 1U);
    EXPECT_THAT(interpreter.started.front().content, Not(HasSubstr("%")));
    EXPECT_THAT(interpreter.started.front().content,
                HasSubstr("-e \"D:\\out\\a.err\" \"D:\\cns\\a.cns\""));
    EXPECT_THAT(
        desktop.messages,
        ElementsAre(warning("3 products are left out: their paths hold a \"%\" or a \"^\".\r\n"
                            "The first of them is \"D:\\100%\\*.lft\".")));
}

TEST_F(UnattendedRecordNames, Where_CNS_would_write_to_such_a_path_nothing_is_started) {
    storeDefinition("CNS Output File Extension=.%~z\r\n");
    EXPECT_EQ(run("-I C:\\batch.ini"), UnattendedResult::NothingStarted);
    EXPECT_THAT(interpreter.started, IsEmpty());
    EXPECT_THAT(
        desktop.messages,
        ElementsAre(warning(
            "The product \"D:\\cns\\*.%~z\" is left out: its path holds a \"%\" or a \"^\".")));
}

TEST_F(UnattendedRecordNames, Records_and_products_are_told_in_one_message) {
    world.write("D:\\meta\\in\\100%.met", "");
    storeDefinition("GRID_Xml=D:\\out\r\nXml Extension=.%b\r\n");
    EXPECT_EQ(run("-I C:\\batch.ini"), UnattendedResult::BatchStarted);
    EXPECT_THAT(
        desktop.messages,
        ElementsAre(warning("The record \"100%.met\" is left out: its name cannot "
                            "stand in a command.\r\nThe product "
                            "\"D:\\out\\*.%b\" is left out: its path holds a \"%\" or a \"^\".")));
}

struct RunRecordNames : RunWorld {};

TEST_F(RunRecordNames, A_product_with_a_percent_sign_in_its_path_is_left_out_and_told) {
    output(definition(), "Error").sExtension = ".%b";
    execute();
    EXPECT_EQ(interpreter.started.size(), 4U);
    for (const auto& started : interpreter.started) {
        EXPECT_THAT(started.content, Not(HasSubstr("%")));
    }
    EXPECT_THAT(desktop.messages, ElementsAre(warning("The product \"D:\\out\\*.%b\" is left "
                                                      "out: its path holds a \"%\" or a \"^\".")));
}

TEST_F(RunRecordNames, Rows_that_are_not_built_and_tools_that_do_not_run_are_not_told_of) {
    output(definition(), "Error").sExtension = ".%b";
    output(definition(), "Error").bBuild = false;
    output(definition(), "Info_file").sOutputFolder = "D:\\100%";
    output(definition(), "Info_file").bBuild = true;
    definition().sCNSOutputExtension = ".%~z";
    definition().iProcessCNS = 0;
    execute();
    EXPECT_EQ(interpreter.started.size(), 2U);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(RunRecordNames, No_tool_is_started_for_a_name_that_would_be_more_than_one) {
    for (const std::string& name : oddNames) {
        window.given.records.push_back(name);
    }
    definition().iProcessCNS = 0;
    execute();
    ASSERT_EQ(interpreter.started.size(), 2U);
    for (const auto& started : interpreter.started) {
        EXPECT_THAT(started.content, Not(HasSubstr("pwned")));
    }
    EXPECT_THAT(statuses(),
                ElementsAre("", "Processing a.met...", "MP - Processing a.met...",
                            "Processing b.met...", "MP - Processing b.met...", "Done!"));
    EXPECT_THAT(window.progress, ElementsAre(0, 50, 100, 0));
    EXPECT_THAT(desktop.messages, ElementsAre(warning(leftOutOfThem)));
}

TEST_F(RunRecordNames, The_user_is_told_when_the_other_records_are_done) {
    window.given.records.push_back(oddNames.front());
    desktop.whileShown = [&](const Message&) { journal.emplace_back("told"); };
    execute();
    EXPECT_EQ(journal.back(), "told");
}

struct ExportRecordNames : UnattendedWorld {};

TEST_F(ExportRecordNames, No_command_is_kept_for_a_name_that_would_be_more_than_one) {
    run("-I C:\\batch.ini");
    BatchExport exporter(
        {.files = world.files(), .desktop = desktop, .interpreter = interpreter, .clock = clock});
    const std::vector<std::string> safe{"a.met", "b.met"};
    exporter.write(definition, safe, "C:\\safe.bat");
    std::vector<std::string> all = safe;
    all.insert(all.begin() + 1, oddNames.begin(), oddNames.end());
    exporter.write(definition, all, "C:\\all.bat");
    EXPECT_EQ(world.read("C:\\all.bat"), world.read("C:\\safe.bat"));
    ASSERT_EQ(desktop.messages.size(), 3U);
    EXPECT_EQ(desktop.messages.back(), warning(leftOutOfThem));
}

TEST_F(ExportRecordNames, No_command_is_kept_that_names_a_product_with_a_percent_sign) {
    run("-I C:\\batch.ini");
    BatchExport exporter(
        {.files = world.files(), .desktop = desktop, .interpreter = interpreter, .clock = clock});
    output(definition, "Error").sOutputFolder = "D:\\100%";
    const std::vector<std::string> one{"a.met"};
    exporter.write(definition, one, "C:\\kept.bat");
    EXPECT_THAT(world.read("C:\\kept.bat"), Not(HasSubstr("%")));
    EXPECT_EQ(desktop.messages.back(), warning("The product \"D:\\100%\\*.err\" is left out: its "
                                               "path holds a \"%\" or a \"^\"."));
}

TEST(RecordNames, The_second_byte_of_a_character_is_no_sign_that_a_command_would_read) {
    for (const unsigned number : {932U, 936U, 950U}) {
        const CodePage page(number);
        for (const char* name : {"\x95\x5C.met", "\x83^.met", "\x83|.met"}) {
            EXPECT_TRUE(staysName(name, page)) << number << name;
            EXPECT_FALSE(staysName(name, CodePage(CodePage::utf8))) << name;
        }
        EXPECT_FALSE(staysName("\x95\x5C\x5C.met", page)) << number;
        EXPECT_FALSE(staysName("\x83^^.met", page)) << number;
    }
}

TEST(RecordNames, A_raised_digit_makes_a_port_in_UTF_8_too) {
    const CodePage utf8(CodePage::utf8);
    EXPECT_TRUE(leadsElsewhere("COM\xC2\xB9.met", utf8));
    EXPECT_TRUE(leadsElsewhere("lpt1", utf8));
    EXPECT_FALSE(leadsElsewhere("COM\xC3\xA9.met", utf8));
    EXPECT_FALSE(leadsElsewhere("COM\xC2\xB9.met", CodePage(CodePage::western)));
}

} // namespace
} // namespace tarnwick
