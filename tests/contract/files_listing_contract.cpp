#include "contract/contract_fixture.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

class FilesListing : public ContractTest {
  protected:
    [[nodiscard]] Names filesOf(std::string_view patterns) const {
        return files.listFiles(platform->scratch(), patterns).names;
    }
};

TEST_F(FilesListing, A_folder_can_be_listed_with_and_without_a_final_backslash) {
    EXPECT_TRUE(files.canListFolder(platform->scratch()));
    EXPECT_TRUE(files.canListFolder(platform->scratch() + '\\'));
    files.createFolder(in("Sub Folder"));
    EXPECT_TRUE(files.canListFolder(in("sub folder")));
    EXPECT_TRUE(files.canListFolder(in("SUB FOLDER\\..\\sub folder\\.")));
}

TEST_F(FilesListing, What_is_no_folder_cannot_be_listed) {
    put("file.txt");
    EXPECT_FALSE(files.canListFolder(in("file.txt")));
    EXPECT_FALSE(files.canListFolder(in("file.txt\\")));
    EXPECT_FALSE(files.canListFolder(in("missing")));
    EXPECT_FALSE(files.canListFolder(in("missing\\deeper")));
    EXPECT_FALSE(files.canListFolder(platform->missingDrive() + '\\'));
    EXPECT_FALSE(files.canListFolder(platform->missingDrive() + R"(\folder)"));
    EXPECT_FALSE(files.canListFolder(R"(\\no-such-server\share\folder)"));
    EXPECT_FALSE(files.canListFolder(""));
}

TEST_F(FilesListing, A_bad_name_is_no_folder) {
    for (const std::string_view bad : {"*", "a?", "a<b", "a>b", "a|b", "a\"b", "a:b", "a\tb"}) {
        EXPECT_FALSE(files.canListFolder(in(bad))) << bad;
    }
    EXPECT_FALSE(files.canListFolder(platform->scratch() + std::string("\0", 1)));
    EXPECT_FALSE(files.canListFolder(in(std::string(5000, 'x'))));
}

TEST_F(FilesListing, The_root_of_a_drive_can_be_listed_even_an_empty_one) {
    const auto drive = platform->emptyDrive();
    EXPECT_TRUE(files.canListFolder(drive + '\\'));
    EXPECT_TRUE(files.canListFolder(drive));
    EXPECT_EQ(files.listFiles(drive + '\\', "").names, Names{});
    EXPECT_EQ(files.listFolders(drive).names, Names{});
    EXPECT_EQ(files.firstNormalFile(drive + R"(\*)"), "");
    EXPECT_EQ(files.firstNormalFile(drive + R"(\a.txt)"), "");
    EXPECT_EQ(raisedBy([&] { return files.openForReading(drive + R"(\a.txt)"); }), 53);
}

TEST_F(FilesListing, A_drive_alone_is_its_root_as_a_folder) {
    const auto drive = platform->scratch().substr(0, 2);
    EXPECT_EQ(files.listFolders(drive).names, files.listFolders(drive + '\\').names);
    EXPECT_FALSE(files.listFolders(drive).names.empty());
}

TEST_F(FilesListing, The_first_normal_file_is_found_without_regard_to_case) {
    put("Record.Met");
    EXPECT_EQ(files.firstNormalFile(in("record.MET")), "Record.Met");
    EXPECT_EQ(files.firstNormalFile(in("Record.Met")), "Record.Met");
    EXPECT_EQ(files.firstNormalFile(in("other.met")), "");
}

TEST_F(FilesListing, The_first_normal_file_of_a_pattern_is_the_first_by_name) {
    put("b.met");
    put("C.met");
    put("A.txt");
    put("B2.MET");
    EXPECT_EQ(files.firstNormalFile(in("*.met")), "b.met");
    EXPECT_EQ(files.firstNormalFile(in("?2.*")), "B2.MET");
    EXPECT_EQ(files.firstNormalFile(in("*")), "A.txt");
    EXPECT_EQ(files.firstNormalFile(in("*.xml")), "");
}

TEST_F(FilesListing, Folders_hidden_and_system_files_are_not_normal_but_read_only_ones_are) {
    files.createFolder(in("folder.met"));
    put("hidden.met");
    put("system.met");
    put("both.met");
    platform->hide(in("hidden.met"));
    platform->makeSystem(in("system.met"));
    platform->hide(in("both.met"));
    platform->makeSystem(in("both.met"));
    EXPECT_EQ(files.firstNormalFile(in("*.met")), "");
    for (const std::string_view name : {"folder.met", "hidden.met", "system.met", "both.met"}) {
        EXPECT_EQ(files.firstNormalFile(in(name)), "") << name;
    }
    put("readonly.met");
    platform->makeReadOnly(in("readonly.met"));
    EXPECT_EQ(files.firstNormalFile(in("*.met")), "readonly.met");
    EXPECT_EQ(files.firstNormalFile(in("readonly.met")), "readonly.met");
}

TEST_F(FilesListing, A_path_that_ends_in_a_backslash_names_no_file) {
    put("a.txt");
    EXPECT_EQ(files.firstNormalFile(platform->scratch() + '\\'), "");
}

TEST_F(FilesListing, The_first_normal_file_of_a_folder_that_is_not_there_raises) {
    put("file.txt");
    EXPECT_EQ(raisedBy([&] { return files.firstNormalFile(in("missing\\a.txt")); }), 76);
    EXPECT_EQ(raisedBy([&] { return files.firstNormalFile(in("missing\\*.txt")); }), 76);
    EXPECT_EQ(raisedBy([&] { return files.firstNormalFile(in("file.txt\\a.txt")); }), 76);
    EXPECT_EQ(raisedBy([&] { return files.firstNormalFile(in("file.txt\\*")); }), 76);
    EXPECT_EQ(raisedBy([&] { return files.firstNormalFile(R"(\\no-such-server\share\a.txt)"); }),
              76);
    const auto drive = platform->missingDrive();
    EXPECT_EQ(raisedBy([&] { return files.firstNormalFile(drive + R"(\a.txt)"); }), 68);
    EXPECT_EQ(raisedBy([&] { return files.firstNormalFile(drive + R"(\*.txt)"); }), 68);
}

TEST_F(FilesListing, The_first_normal_file_of_a_bad_name_raises_52) {
    for (const std::string_view bad : {"a<b", "a|b*", "a:b", "a\"b", "*\\a", "a\nb"}) {
        EXPECT_EQ(raisedBy([&] { return files.firstNormalFile(in(bad)); }), 52) << bad;
    }
}

TEST_F(FilesListing, Files_are_listed_by_pattern_each_once_sorted_by_name) {
    for (const std::string_view name :
         {"b.met", "A10.met", "a2.MET", "\xE9.met", "z.met", "C.sid", "d.tif", "notes", "a.meta"}) {
        put(name);
    }
    EXPECT_EQ(filesOf("*.met"), (Names{"A10.met", "a2.MET", "b.met", "z.met", "\xE9.met"}));
    EXPECT_EQ(filesOf(" *.sid;*.tif ; c.*"), (Names{"C.sid", "d.tif"}));
    EXPECT_EQ(filesOf("?.met"), (Names{"b.met", "z.met", "\xE9.met"}));
    EXPECT_EQ(filesOf("\xC9.*"), Names{"\xE9.met"});
    EXPECT_EQ(filesOf("*.xml"), Names{});
    const Names all{"a.meta", "A10.met", "a2.MET", "b.met",   "C.sid",
                    "d.tif",  "notes",   "z.met",  "\xE9.met"};
    EXPECT_EQ(filesOf(""), all);
    EXPECT_EQ(filesOf("*.*"), all);
    EXPECT_EQ(filesOf("*"), all);
    EXPECT_EQ(files.listFiles(platform->scratch() + '\\', "*").names, all);
}

TEST_F(FilesListing, A_longer_extension_does_not_match_by_its_short_name) {
    put("page.html");
    EXPECT_EQ(filesOf("*.htm"), Names{});
}

TEST_F(FilesListing, Hidden_and_system_files_and_folders_are_not_listed) {
    for (const std::string_view name : {"h.txt", "s.txt", "r.txt", "n.txt"}) {
        put(name);
    }
    platform->hide(in("h.txt"));
    platform->makeSystem(in("s.txt"));
    platform->makeReadOnly(in("r.txt"));
    for (const std::string_view name : {"seen", "Alpha", "hiddenF", "systemF"}) {
        files.createFolder(in(name));
    }
    platform->hide(in("hiddenF"));
    platform->makeSystem(in("systemF"));
    EXPECT_EQ(filesOf(""), (Names{"n.txt", "r.txt"}));
    EXPECT_EQ(files.listFolders(platform->scratch()).names, (Names{"Alpha", "seen"}));
}

TEST_F(FilesListing, What_cannot_be_listed_raises) {
    put("file.txt");
    for (const auto& folder : {in("missing"), in("missing\\deeper"), in("file.txt"), std::string(),
                               std::string(R"(\\no-such-server\share)")}) {
        EXPECT_EQ(raisedBy([&] { return files.listFiles(folder, "*").names; }), 76) << folder;
        EXPECT_EQ(raisedBy([&] { return files.listFolders(folder).names; }), 76) << folder;
    }
    const auto drive = platform->missingDrive();
    EXPECT_EQ(raisedBy([&] { return files.listFiles(drive, "*").names; }), 68);
    EXPECT_EQ(raisedBy([&] { return files.listFolders(drive + R"(\folder)").names; }), 68);
    EXPECT_EQ(raisedBy([&] { return files.listFiles(in("a*"), "*").names; }), 52);
    EXPECT_EQ(raisedBy([&] { return files.listFolders(in("a|b")).names; }), 52);
}

TEST_F(FilesListing, A_folder_of_many_files_is_listed_whole) {
    Names expected;
    for (int i = 1000; i < 2200; ++i) {
        expected.push_back("Record_" + std::to_string(i) + ".met");
    }
    auto names = expected;
    std::ranges::reverse(names);
    for (const auto& name : names) {
        put(name);
    }
    EXPECT_EQ(filesOf("*.met"), expected);
}

TEST_F(FilesListing, Drives_are_told_by_letter_and_sorted) {
    const auto empty = platform->emptyDrive();
    const auto drives = files.drives();
    EXPECT_TRUE(std::ranges::is_sorted(drives));
    EXPECT_EQ(std::ranges::count(drives, empty), 1);
    EXPECT_EQ(std::ranges::count(drives, platform->scratch().substr(0, 2)), 1);
    EXPECT_EQ(std::ranges::count(drives, platform->missingDrive()), 0);
    for (const auto& drive : drives) {
        EXPECT_EQ(drive.size(), 2U);
        EXPECT_TRUE(drive[0] >= 'A' && drive[0] <= 'Z' && drive[1] == ':') << drive;
    }
}

TEST_F(FilesListing, The_current_folder_is_full_and_paths_are_relative_to_it) {
    EXPECT_EQ(files.currentFolder(), platform->currentFolder());
    EXPECT_TRUE(files.canListFolder("."));
    const auto current = files.currentFolder();
    EXPECT_TRUE(current.size() == 3 || !current.ends_with('\\')) << current;
    EXPECT_EQ(files.listFiles(".", "").names, files.listFiles(current, "").names);
    EXPECT_EQ(files.listFolders(current.substr(2)).names, files.listFolders(current).names);
}

TEST_F(FilesListing, A_short_path_names_the_same_file) {
    files.createFolder(in("A folder with blanks"));
    const auto path = in("A folder with blanks\\A long name with blanks.text");
    putBytes(files, path, "same");
    const auto shortened = files.shortPath(path);
    EXPECT_TRUE(shortened == path || !shortened.contains(' ')) << shortened;
    EXPECT_EQ(bytesOf(files, shortened), "same");
    EXPECT_TRUE(files.canListFolder(files.shortPath(in("A folder with blanks"))));
}

TEST_F(FilesListing, What_is_not_there_has_no_short_path) {
    EXPECT_EQ(raisedBy([&] { return files.shortPath(in("missing")); }), 53);
    EXPECT_EQ(raisedBy([&] { return files.shortPath(in("missing\\a")); }), 76);
    EXPECT_EQ(raisedBy([&] { return files.shortPath(platform->missingDrive() + R"(\a)"); }), 68);
}

} // namespace
} // namespace tarnwick
