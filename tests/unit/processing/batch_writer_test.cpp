#include "processing/batch_writer.hpp"
#include "support/fake_command_interpreter.hpp"
#include "support/faulty_files.hpp"
#include "support/hosted_world.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

class BatchFile : public testing::Test {
  protected:
    std::string written(const auto& write) {
        BatchWriter batch(world.files().create("C:\\x.bat"), interpreter);
        write(batch);
        batch.close();
        return world.read("C:\\x.bat");
    }
    std::string inFolder(std::string_view folder) {
        return written([&](BatchWriter& batch) { changeToFolder(batch, folder); });
    }

    HostedWorld world;
    FakeCommandInterpreter interpreter{world.files()};
};

TEST_F(BatchFile, Every_line_ends_in_carriage_return_and_line_feed) {
    EXPECT_EQ(written([](BatchWriter& batch) {
                  batch.line("a");
                  batch.line("");
                  batch.line("b");
              }),
              "a\r\n\r\nb\r\n");
}

TEST_F(BatchFile, An_accent_is_written_in_the_interpreters_code_page) {
    EXPECT_EQ(written([](BatchWriter& batch) { batch.line("caf\xE9 1.met"); }),
              "caf\x82 1.met\r\n");
}

TEST_F(BatchFile, From_a_character_on_that_the_interpreter_lacks_the_systems_code_page_is_used) {
    EXPECT_EQ(written([](BatchWriter& batch) {
                  batch.line("caf\xE9");
                  batch.line("\xC0 la carte"); // no capital a with grave in code page 437
                  batch.line("caf\xE9");
              }),
              "caf\x82\r\n@\"%SystemRoot%\\System32\\chcp.com\" 1252 > nul\r\n\xC0 la "
              "carte\r\ncaf\xE9\r\n");
}

TEST_F(BatchFile, Many_lines_reach_the_file_before_it_is_closed) {
    BatchWriter batch(world.files().create("C:\\x.bat"), interpreter);
    const std::string line(1000, 'x');
    std::string expected;
    for (int i = 0; i < 1000; ++i) {
        batch.line(line);
        expected += line + "\r\n";
    }
    batch.close();
    EXPECT_EQ(world.read("C:\\x.bat"), expected);
}

TEST_F(BatchFile, A_full_disk_is_raised) {
    FaultyFiles full(world.files());
    full.fillDiskAfter(3);
    BatchWriter batch(full.create("C:\\x.bat"), interpreter);
    EXPECT_THROW(
        {
            batch.line("12345");
            batch.close();
        },
        RunTimeError);
}

TEST_F(BatchFile, A_folder_with_a_caret_is_entered_in_quotation_marks) {
    EXPECT_EQ(inFolder("C:\\a^b"), "@echo off\r\nC:\r\ncd \"\\a^b\"\r\n@echo on\r\n");
}

TEST_F(BatchFile, A_folder_with_a_drive_is_entered_drive_first) {
    EXPECT_EQ(inFolder(" C:\\meta\\my in "), "@echo off\r\nC:\r\ncd \\meta\\my in\r\n@echo on\r\n");
}

TEST_F(BatchFile, A_bare_drive_gives_a_cd_with_nothing_behind_it) {
    EXPECT_EQ(inFolder("C:"), "@echo off\r\nC:\r\ncd \r\n@echo on\r\n");
}

TEST_F(BatchFile, A_folder_without_a_drive_is_not_entered) {
    EXPECT_EQ(inFolder("\\\\server\\share\\in"), "");
    EXPECT_EQ(inFolder(""), "");
}

TEST_F(BatchFile, A_folder_name_that_would_end_the_command_is_put_in_quotation_marks) {
    EXPECT_EQ(inFolder("D:\\R&D"), "@echo off\r\nD:\r\ncd \"\\R&D\"\r\n@echo on\r\n");
}

} // namespace
} // namespace tarnwick
