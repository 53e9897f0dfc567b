#include "contract/contract_fixture.hpp"

#include <array>
#include <cstddef>
#include <fstream>
#include <iterator>

namespace tarnwick {
namespace {

std::string everyByte() {
    std::string bytes;
    for (int code = 0; code < 256; ++code) {
        bytes.append(1, static_cast<char>(code));
    }
    return bytes;
}

class FilesContent : public ContractTest {
  protected:
    // As another program sees it.
    [[nodiscard]] std::string bytesSeenByLibrary(std::string_view name) const {
        std::ifstream file(platform->libraryPath(in(name)), std::ios::binary);
        EXPECT_TRUE(file.is_open()) << name;
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
};

TEST_F(FilesContent, Bytes_are_written_and_read_as_they_stand) {
    const auto bytes = everyByte() + "\r\n\n\r\x1A" + everyByte();
    put("a.bin", bytes);
    EXPECT_EQ(get("a.bin"), bytes);
    EXPECT_EQ(bytesSeenByLibrary("a.bin"), bytes);
}

TEST_F(FilesContent, An_empty_file_is_at_its_end) {
    put("empty.txt");
    const auto file = files.openForReading(in("empty.txt"));
    std::array<char, 16> buffer{};
    EXPECT_EQ(file->read(buffer), 0U);
    EXPECT_EQ(file->read(buffer), 0U);
}

TEST_F(FilesContent, Reading_goes_on_where_it_stopped_and_ends_with_zero) {
    put("a.txt", "abcdefg");
    const auto file = files.openForReading(in("a.txt"));
    std::string bytes;
    std::array<char, 3> buffer{};
    int reads = 0;
    while (const auto count = file->read(buffer)) {
        ASSERT_LE(count, buffer.size());
        bytes.append(buffer.data(), count);
        ++reads;
    }
    EXPECT_EQ(bytes, "abcdefg");
    EXPECT_GE(reads, 3);
    EXPECT_EQ(file->read(buffer), 0U);
}

TEST_F(FilesContent, Five_megabytes_come_back_as_they_went) {
    std::string bytes;
    for (unsigned i = 0; bytes.size() < 5UZ * 1024 * 1024; ++i) {
        bytes.append(std::to_string(i * 2654435761U)).append(i % 7 == 0 ? "\r\n" : " ");
    }
    const auto file = files.create(in("big.txt"));
    for (std::size_t at = 0, length = 1; at < bytes.size(); at += length, length = length * 3 + 1) {
        file->write(std::string_view(bytes).substr(at, length));
    }
    file->close();
    EXPECT_TRUE(get("big.txt") == bytes);
    EXPECT_TRUE(bytesSeenByLibrary("big.txt") == bytes);
}

TEST_F(FilesContent, Many_small_writes_keep_their_order) {
    std::string expected;
    const auto file = files.create(in("lines.txt"));
    for (int i = 0; i < 100000; ++i) {
        const auto line = std::to_string(i) + "\r\n";
        expected += line;
        file->write(line);
    }
    file->write("");
    file->close();
    EXPECT_TRUE(get("lines.txt") == expected);
}

TEST_F(FilesContent, Names_with_bytes_above_127_are_names_like_any_other) {
    put("caf\xE9 1.met", "caf\xE9");
    EXPECT_EQ(get("CAF\xC9 1.MET"), "caf\xE9");
    EXPECT_EQ(files.listFiles(platform->scratch(), "*").names, Names{"caf\xE9 1.met"});
    files.createFolder(in("\xDC"
                          "bung"));
    EXPECT_TRUE(files.canListFolder(in("\xFC"
                                       "bung")));
}

TEST_F(FilesContent, Creating_empties_an_existing_file_and_keeps_its_name) {
    put("Old.txt", "a long old content");
    put("OLD.TXT", "new");
    EXPECT_EQ(get("old.txt"), "new");
    EXPECT_EQ(files.listFiles(platform->scratch(), "").names, Names{"Old.txt"});
    files.create(in("old.txt"))->close();
    EXPECT_EQ(get("old.txt"), "");
}

TEST_F(FilesContent, A_hidden_file_can_be_written_and_stays_hidden) {
    put("h.txt", "old");
    platform->hide(in("h.txt"));
    put("h.txt", "new");
    EXPECT_EQ(get("h.txt"), "new");
    EXPECT_FALSE(exists("h.txt"));
}

TEST_F(FilesContent, Appending_writes_behind_the_old_content_or_makes_the_file) {
    for (const std::string_view text : {"one\r\n", "two\r\n", ""}) {
        const auto file = files.append(in("log.txt"));
        file->write(text);
        file->close();
    }
    EXPECT_EQ(get("log.txt"), "one\r\ntwo\r\n");
}

TEST_F(FilesContent, What_was_flushed_is_seen_by_others_while_the_file_is_open) {
    const auto file = files.create(in("a.txt"));
    file->write("abc");
    file->flush();
    EXPECT_EQ(get("a.txt"), "abc");
    file->write("def");
    file->flush();
    EXPECT_EQ(get("a.txt"), "abcdef");
}

TEST_F(FilesContent, A_second_close_does_nothing_and_the_destructor_closes) {
    auto file = files.create(in("a.txt"));
    file->write("abc");
    file->close();
    file->close();
    EXPECT_EQ(get("a.txt"), "abc");
    file = files.append(in("a.txt"));
    file->write("def");
    file.reset();
    EXPECT_EQ(get("a.txt"), "abcdef");
}

TEST_F(FilesContent, A_reader_keeps_nobody_from_reading_and_writing) {
    put("a.txt", "abc");
    const auto reader = files.openForReading(in("a.txt"));
    EXPECT_EQ(get("a.txt"), "abc");
    const auto writer = files.append(in("a.txt"));
    writer->write("def");
    writer->close();
    std::array<char, 16> buffer{};
    EXPECT_EQ(reader->read(buffer), 6U);
}

TEST_F(FilesContent, A_file_that_is_being_written_can_be_read_but_not_written) {
    const auto writer = files.create(in("a.txt"));
    EXPECT_EQ(get("a.txt"), "");
    EXPECT_EQ(raisedBy([&] { return files.create(in("a.txt")); }), 70);
    EXPECT_EQ(raisedBy([&] { return files.append(in("A.TXT")); }), 70);
    writer->write("mine");
    writer->close();
    EXPECT_EQ(get("a.txt"), "mine");
    const auto appender = files.append(in("a.txt"));
    EXPECT_EQ(raisedBy([&] { return files.create(in("a.txt")); }), 70);
    appender->close();
    EXPECT_EQ(get("a.txt"), "mine");
}

TEST_F(FilesContent, A_file_that_another_program_keeps_to_itself_raises_70) {
    put("a.txt", "abc");
    auto other = platform->keep(in("a.txt"));
    EXPECT_EQ(raisedBy([&] { return files.openForReading(in("a.txt")); }), 70);
    EXPECT_EQ(raisedBy([&] { return files.create(in("a.txt")); }), 70);
    EXPECT_EQ(raisedBy([&] { return files.append(in("a.txt")); }), 70);
    other.reset();
    EXPECT_EQ(get("a.txt"), "abc");
}

TEST_F(FilesContent, Reading_what_is_not_there_raises) {
    put("file.txt");
    EXPECT_EQ(raisedBy([&] { return files.openForReading(in("missing.txt")); }), 53);
    EXPECT_EQ(raisedBy([&] { return files.openForReading(in("missing\\a.txt")); }), 76);
    EXPECT_EQ(raisedBy([&] { return files.openForReading(in("file.txt\\a.txt")); }), 76);
    EXPECT_EQ(raisedBy([&] { return files.openForReading(platform->missingDrive() + R"(\a)"); }),
              68);
    EXPECT_EQ(raisedBy([&] { return files.openForReading(R"(\\no-such-server\share\a)"); }), 76);
    EXPECT_EQ(raisedBy([&] { return files.openForReading(platform->scratch()); }), 75);
}

TEST_F(FilesContent, Writing_where_no_file_can_be_raises) {
    put("file.txt", "abc");
    files.createFolder(in("folder"));
    const auto drive = platform->missingDrive();
    for (const bool append : {false, true}) {
        const auto open = [&](const std::string& path) {
            return raisedBy([&] { return append ? files.append(path) : files.create(path); });
        };
        EXPECT_EQ(open(in("missing\\a.txt")), 76);
        EXPECT_EQ(open(in("file.txt\\a.txt")), 76);
        EXPECT_EQ(open(drive + R"(\a.txt)"), 68);
        EXPECT_EQ(open(in("folder")), 75);
    }
    EXPECT_EQ(get("file.txt"), "abc");
    EXPECT_EQ(files.listFiles(platform->scratch(), "").names, Names{"file.txt"});
}

TEST_F(FilesContent, A_read_only_file_can_be_read_but_not_written) {
    put("a.txt", "abc");
    platform->makeReadOnly(in("a.txt"));
    EXPECT_EQ(raisedBy([&] { return files.create(in("a.txt")); }), 75);
    EXPECT_EQ(raisedBy([&] { return files.append(in("a.txt")); }), 75);
    EXPECT_EQ(get("a.txt"), "abc");
}

TEST_F(FilesContent, A_name_that_no_file_can_have_raises_52) {
    for (const std::string_view bad : {"a*", "a?b", "a<b", "a>b", "a|b", "a\"b", "a:b", "a\x01"}) {
        EXPECT_EQ(raisedBy([&] { return files.openForReading(in(bad)); }), 52) << bad;
        EXPECT_EQ(raisedBy([&] { return files.create(in(bad)); }), 52) << bad;
        EXPECT_EQ(raisedBy([&] { return files.append(in(bad)); }), 52) << bad;
    }
    const auto cut = in(std::string("a.txt\0b", 7));
    EXPECT_EQ(raisedBy([&] { return files.create(cut); }), 52);
    EXPECT_EQ(files.listFiles(platform->scratch(), "").names, Names{});
}

TEST_F(FilesContent, A_new_file_is_created_only_where_nothing_of_that_name_exists) {
    const auto file = files.createNew(in("new.txt"));
    file->write("one");
    file->close();
    EXPECT_EQ(raisedBy([&] { return files.createNew(in("NEW.txt")); }), 58);
    EXPECT_EQ(bytesOf(files, in("new.txt")), "one");
    EXPECT_EQ(raisedBy([&] { return files.createNew(in("missing\\new.txt")); }), 76);
}

TEST_F(FilesContent, A_folder_of_that_name_is_in_the_way_of_a_new_file_too) {
    files.createFolder(in("new.bat"));
    EXPECT_EQ(raisedBy([&] { return files.createNew(in("new.bat")); }), 58);
}

} // namespace
} // namespace tarnwick
