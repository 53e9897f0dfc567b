#include "contract/contract_fixture.hpp"

namespace tarnwick {
namespace {

class FilesChange : public ContractTest {};

TEST_F(FilesChange, A_file_is_removed_whatever_the_case_of_its_name) {
    put("A.txt");
    put("b.txt");
    files.remove(in("a.TXT"));
    EXPECT_EQ(files.listFiles(platform->scratch(), "").names, Names{"b.txt"});
}

TEST_F(FilesChange, What_cannot_be_removed_raises_and_stays) {
    put("a.txt", "abc");
    files.createFolder(in("folder"));
    EXPECT_EQ(raisedBy([&] { files.remove(in("missing.txt")); }), 53);
    EXPECT_EQ(raisedBy([&] { files.remove(in("folder")); }), 53);
    EXPECT_EQ(raisedBy([&] { files.remove(in("missing\\a.txt")); }), 76);
    EXPECT_EQ(raisedBy([&] { files.remove(platform->missingDrive() + R"(\a.txt)"); }), 68);
    EXPECT_EQ(raisedBy([&] { files.remove(in("*.txt")); }), 52);
    platform->makeReadOnly(in("a.txt"));
    EXPECT_EQ(raisedBy([&] { files.remove(in("a.txt")); }), 75);
    EXPECT_EQ(get("a.txt"), "abc");
    EXPECT_TRUE(files.canListFolder(in("folder")));
}

TEST_F(FilesChange, A_file_in_use_is_not_removed) {
    put("a.txt", "abc");
    auto reader = files.openForReading(in("a.txt"));
    EXPECT_EQ(raisedBy([&] { files.remove(in("a.txt")); }), 70);
    reader.reset();
    auto writer = files.append(in("a.txt"));
    EXPECT_EQ(raisedBy([&] { files.remove(in("a.txt")); }), 70);
    writer.reset();
    auto other = platform->keep(in("a.txt"));
    EXPECT_EQ(raisedBy([&] { files.remove(in("a.txt")); }), 70);
    other.reset();
    EXPECT_EQ(get("a.txt"), "abc");
    files.remove(in("a.txt"));
    EXPECT_FALSE(exists("a.txt"));
}

TEST_F(FilesChange, One_folder_is_created) {
    files.createFolder(in("New Folder"));
    EXPECT_EQ(files.listFolders(platform->scratch()).names, Names{"New Folder"});
    EXPECT_EQ(files.listFiles(in("new folder"), "").names, Names{});
}

TEST_F(FilesChange, A_folder_that_cannot_be_created_raises) {
    put("file");
    files.createFolder(in("folder"));
    EXPECT_EQ(raisedBy([&] { files.createFolder(in("FOLDER")); }), 75);
    EXPECT_EQ(raisedBy([&] { files.createFolder(in("file")); }), 75);
    EXPECT_EQ(raisedBy([&] { files.createFolder(in("missing\\new")); }), 76);
    EXPECT_EQ(raisedBy([&] { files.createFolder(in("file\\new")); }), 76);
    EXPECT_EQ(raisedBy([&] { files.createFolder(platform->missingDrive() + R"(\new)"); }), 68);
    for (const std::string_view bad : {"a*", "a|b", "a:b", "a\"b"}) {
        EXPECT_EQ(raisedBy([&] { files.createFolder(in(bad)); }), 52) << bad;
    }
    EXPECT_EQ(files.listFolders(platform->scratch()).names, Names{"folder"});
}

TEST_F(FilesChange, A_file_takes_the_place_of_another) {
    put("new.txt", "new");
    put("Old.txt", "old and longer");
    files.moveOver(in("new.txt"), in("old.txt"));
    EXPECT_EQ(get("old.txt"), "new");
    EXPECT_FALSE(exists("new.txt"));
}

TEST_F(FilesChange, A_file_that_is_replaced_stays_readable_for_whom_it_was) {
    put("new.txt", "new");
    put("old.txt", "old");
    put("like new.txt", "new");
    platform->keepFromOthers(in("old.txt"));
    const std::string kept = platform->rightsTo(in("old.txt"));
    const std::string open = platform->rightsTo(in("new.txt"));
    ASSERT_NE(kept, open);
    files.moveOver(in("new.txt"), in("old.txt"));
    EXPECT_EQ(platform->rightsTo(in("old.txt")), kept);
    EXPECT_EQ(get("old.txt"), "new");
    // And the other way round: what was open to all does not become closed.
    files.moveOver(in("old.txt"), in("like new.txt"));
    EXPECT_EQ(platform->rightsTo(in("like new.txt")), open);
}

TEST_F(FilesChange, A_file_that_is_replaced_by_another_keeps_nothing_of_its_own) {
    put("like new.txt", "");
    put("new.txt", "new");
    put("old.txt", "old");
    const auto open = platform->rightsTo(in("like new.txt"));
    platform->keepFromOthers(in("old.txt"));
    ASSERT_NE(platform->rightsTo(in("old.txt")), open);
    files.replace(in("new.txt"), in("old.txt"));
    EXPECT_EQ(platform->rightsTo(in("old.txt")), open);
    EXPECT_EQ(get("old.txt"), "new");
    EXPECT_FALSE(exists("new.txt"));
    files.replace(in("old.txt"), in("first.txt"));
    EXPECT_EQ(get("first.txt"), "new");
    EXPECT_EQ(raisedBy([&] { files.replace(in("missing.txt"), in("first.txt")); }), 53);
}

TEST_F(FilesChange, A_hidden_file_that_is_replaced_stays_hidden) {
    put("new.txt", "new");
    put("old.txt", "old");
    platform->hide(in("old.txt"));
    files.moveOver(in("new.txt"), in("old.txt"));
    EXPECT_EQ(files.listFiles(platform->scratch(), "").names, Names{});
    EXPECT_EQ(get("old.txt"), "new");
}

TEST_F(FilesChange, A_file_moves_to_where_none_is) {
    put("new.txt", "new");
    files.createFolder(in("folder"));
    files.moveOver(in("new.txt"), in("folder\\other.txt"));
    EXPECT_EQ(get("folder\\other.txt"), "new");
    EXPECT_FALSE(exists("new.txt"));
}

TEST_F(FilesChange, What_cannot_move_raises) {
    put("old.txt", "old");
    files.createFolder(in("folder"));
    const auto move = [&](std::string_view from, std::string_view to) {
        return raisedBy([&] { files.moveOver(in(from), in(to)); });
    };
    EXPECT_EQ(move("missing.txt", "old.txt"), 53);
    EXPECT_EQ(move("folder", "other"), 53);
    EXPECT_EQ(move("missing\\a.txt", "old.txt"), 76);
    EXPECT_EQ(move("old.txt", "missing\\a.txt"), 76);
    EXPECT_EQ(move("old.txt", "folder"), 75);
    EXPECT_EQ(move("old.txt", "a*"), 52);
    EXPECT_EQ(move("o?d.txt", "a"), 52);
    EXPECT_EQ(
        raisedBy([&] { files.moveOver(in("old.txt"), platform->missingDrive() + R"(\a.txt)"); }),
        68);
    EXPECT_EQ(get("old.txt"), "old");
    EXPECT_EQ(files.listFiles(platform->scratch(), "").names, Names{"old.txt"});
    EXPECT_EQ(files.listFolders(platform->scratch()).names, Names{"folder"});
}

TEST_F(FilesChange, A_read_only_file_is_not_replaced) {
    put("new.txt", "new");
    put("old.txt", "old");
    platform->makeReadOnly(in("old.txt"));
    EXPECT_EQ(raisedBy([&] { files.moveOver(in("new.txt"), in("old.txt")); }), 75);
    EXPECT_EQ(get("new.txt"), "new");
    EXPECT_EQ(get("old.txt"), "old");
}

TEST_F(FilesChange, Nothing_moves_from_one_volume_to_another) {
    const auto there = platform->otherVolume() + R"(\there.txt)";
    put("here.txt", "abc");
    const auto move = [&] { return raisedBy([&] { files.moveOver(in("here.txt"), there); }); };
    EXPECT_EQ(move(), 74);
    EXPECT_EQ(files.firstNormalFile(there), "");
    putBytes(files, there, "old");
    EXPECT_EQ(move(), 74);
    EXPECT_EQ(bytesOf(files, there), "old");
    EXPECT_EQ(get("here.txt"), "abc");
}

TEST_F(FilesChange, A_file_in_use_is_neither_replaced_nor_moved) {
    put("new.txt", "new");
    put("old.txt", "old");
    const auto move = [&] {
        return raisedBy([&] { files.moveOver(in("new.txt"), in("old.txt")); });
    };
    for (const std::string_view used : {"old.txt", "new.txt"}) {
        SCOPED_TRACE(used);
        auto reader = files.openForReading(in(used));
        EXPECT_EQ(move(), 70);
        reader.reset();
        auto writer = files.append(in(used));
        EXPECT_EQ(move(), 70);
        writer.reset();
        auto other = platform->keep(in(used));
        EXPECT_EQ(move(), 70);
        other.reset();
        EXPECT_EQ(get("new.txt"), "new");
        EXPECT_EQ(get("old.txt"), "old");
    }
    EXPECT_EQ(move(), 0);
    EXPECT_EQ(get("old.txt"), "new");
}

} // namespace
} // namespace tarnwick
