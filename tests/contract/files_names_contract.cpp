// Names that the system's code page cannot tell, and what a pattern means.

#include "contract/contract_fixture.hpp"

namespace tarnwick {
namespace {

class FilesNames : public ContractTest {
  protected:
    FilesNames() : bare(platform->filesWithoutShortNames()) {}

    Files& bare;
};

TEST_F(FilesNames, A_file_whose_name_has_no_place_in_the_code_page_is_left_out_and_told) {
    put("a.met");
    const auto shown = platform->makeNameless(platform->scratch(), ".met");
    const Listing listing = bare.listFiles(platform->scratch(), "*.met");
    EXPECT_EQ(listing.names, Names{"a.met"});
    EXPECT_EQ(listing.leftOut, (LeftOut{.count = 1, .first = shown}));
}

TEST_F(FilesNames, Of_several_that_are_left_out_the_first_by_name_is_told) {
    platform->makeNameless(platform->scratch(), "2.met");
    const auto shown = platform->makeNameless(platform->scratch(), "1.met");
    platform->makeNameless(platform->scratch(), "3.met");
    const Listing listing = bare.listFiles(platform->scratch(), "");
    EXPECT_EQ(listing.names, Names{});
    EXPECT_EQ(listing.leftOut, (LeftOut{.count = 3, .first = shown}));
}

TEST_F(FilesNames, Only_what_was_asked_for_counts_as_left_out) {
    platform->makeNameless(platform->scratch(), ".txt");
    files.createFolder(in("folder"));
    EXPECT_EQ(bare.listFiles(platform->scratch(), "*.met").leftOut, LeftOut{});
    EXPECT_EQ(bare.listFolders(platform->scratch()), (Listing{.names = {"folder"}, .leftOut = {}}));
    EXPECT_EQ(bare.listFiles(platform->scratch(), "?.txt").leftOut.count, 1U);
}

TEST_F(FilesNames, A_file_that_has_no_name_here_does_not_count_as_the_first_normal_one) {
    platform->makeNameless(platform->scratch(), ".met");
    EXPECT_EQ(bare.firstNormalFile(in("*.met")), "");
}

TEST_F(FilesNames, How_a_name_is_shown_is_never_the_name_of_a_file) {
    const auto shown = platform->makeNameless(platform->scratch(), ".met");
    EXPECT_EQ(raisedBy([&] { return files.openForReading(in(shown)); }), 52);
}

TEST_F(FilesNames, A_semicolon_in_the_last_part_of_a_path_is_a_character_of_one_pattern) {
    put("a.txt");
    put(" q.txt");
    put("x;y.txt");
    EXPECT_EQ(files.firstNormalFile(in("zz;*.txt")), "");
    EXPECT_EQ(files.firstNormalFile(in("x;*.txt")), "x;y.txt");
    EXPECT_EQ(files.firstNormalFile(in(" q.t*")), " q.txt");
}

TEST_F(FilesNames, A_wildcard_behind_the_dot_also_finds_a_name_without_an_extension) {
    put("README");
    put("q.txt");
    put("qq.txt");
    const auto filesOf = [this](std::string_view patterns) {
        return files.listFiles(platform->scratch(), patterns).names;
    };
    EXPECT_EQ(filesOf("README.*"), Names{"README"});
    EXPECT_EQ(filesOf("q?.txt"), (Names{"q.txt", "qq.txt"}));
    EXPECT_EQ(filesOf("*."), Names{"README"});
    EXPECT_EQ(filesOf("*.???"), (Names{"q.txt", "qq.txt", "README"}));
}

} // namespace
} // namespace tarnwick
