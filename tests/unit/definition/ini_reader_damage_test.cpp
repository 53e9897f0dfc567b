// Files that are no INI file, or not quite.
#include "definition/ini_file.hpp"
#include "support/hosted_world.hpp"
#include "support/messages.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <string_view>

namespace tarnwick {
namespace {

using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::IsEmpty;

struct DamagedINIFile : testing::Test {
    HostedWorld world;
    ScriptedDesktop desktop;
    BatchDefinition definition;
    int timesRead = 0;

    DamagedINIFile() {
        MyDefaultSettings(definition);
        definition.sAppFolder = "C:\\app\\";
        definition.sINIFile = "C:\\batch.ini";
        definition.bSettingsChanged = true;
    }

    static Message notOurs() {
        return errorReport("frmMain", "Public Sub ReadINIFile()", ErrorNumber::InvalidFileFormat);
    }

    bool read(std::string_view content) {
        world.write("C:\\batch.ini", content);
        return ReadINIFile(definition, world.files(), desktop, [this] { ++timesRead; });
    }
};

TEST_F(DamagedINIFile, A_file_without_any_known_entry_is_reported_and_not_taken) {
    const BatchDefinition before = definition;
    for (const std::string_view content :
         {"Title: Lakes\r\n  Purpose: none = any\r\n"sv, "x"sv, "\xEF\xBB\xBFTitle: Lakes"sv,
          "GRID_Foo=C:\\\r\nGRID_=C:\\\r\n"sv, "Language French\r\n"sv, "Language=\0\r\n"sv}) {
        desktop.messages.clear();
        EXPECT_FALSE(read(content)) << content;
        EXPECT_THAT(desktop.messages, ElementsAre(notOurs()));
        EXPECT_EQ(definition, before) << content;
    }
    EXPECT_EQ(timesRead, 0);
}

TEST_F(DamagedINIFile, A_binary_file_is_not_taken) {
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp,cert-msc32-c): the same bytes every time
    std::string binary;
    for (int i = 0; i < 500'000; ++i) {
        binary.push_back(static_cast<char>(random()));
    }
    const BatchDefinition before = definition;
    EXPECT_FALSE(read(binary));
    EXPECT_EQ(definition, before);
    EXPECT_THAT(desktop.messages, ElementsAre(notOurs()));
}

TEST_F(DamagedINIFile, A_line_of_100_megabytes_is_no_entry_and_changes_no_setting) {
    const BatchDefinition before = definition;
    std::string huge = "Command Line Log Filename=";
    huge.append(std::size_t{100} * 1024 * 1024, 'x');
    EXPECT_FALSE(read(huge));
    EXPECT_EQ(definition, before);
    EXPECT_TRUE(read("Language=French\r\n" + huge));
    EXPECT_EQ(definition.sCommandLineLogFile, "");
    EXPECT_EQ(definition.sLanguage, "French");
    EXPECT_THAT(desktop.messages, ElementsAre(notOurs()));
}

TEST_F(DamagedINIFile, One_known_entry_makes_it_a_definition_whatever_else_it_holds) {
    for (const std::string_view entry :
         {"Input Folder=C:\\missing"sv, "GRID_Xml=C:\\missing"sv, "grid_info_file="sv,
          " dif extension =.x"sv, "Aliases File="sv, "FIX DOC="sv}) {
        EXPECT_TRUE(read("Title: Lakes\r\n" + std::string(entry) + "\r\nmore\r\n")) << entry;
    }
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(DamagedINIFile, A_file_that_holds_nothing_but_blanks_and_line_ends_is_an_empty_one) {
    for (const std::string_view content : {""sv, "\r\n \r\n"sv, "\xEF\xBB\xBF"sv}) {
        EXPECT_TRUE(read(content));
    }
    EXPECT_EQ(timesRead, 3);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(DamagedINIFile, A_line_that_holds_a_NUL_is_no_entry) {
    EXPECT_TRUE(read("Language=Fre\0nch\r\nFIX\0 DOC=1\r\n\0FIX DOC=1\r\n"
                     "Command Line Log Filename=a.log\r\n"sv));
    EXPECT_EQ(definition.sLanguage, "English");
    EXPECT_EQ(definition.iFixDoc, 0);
    EXPECT_EQ(definition.sCommandLineLogFile, "a.log");
}

TEST_F(DamagedINIFile, The_byte_order_mark_of_an_editor_does_not_spoil_the_first_key) {
    EXPECT_TRUE(read("\xEF\xBB\xBFLanguage=French\r\n\xEF\xBB\xBF"
                     "FIX DOC=1\r\n")); // only in front is it a mark
    EXPECT_EQ(definition.sLanguage, "French");
    EXPECT_EQ(definition.iFixDoc, 0);
}

} // namespace
} // namespace tarnwick
