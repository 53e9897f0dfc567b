#include "common/keep_only.hpp"
#include "processing/listing_match.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Listed {
  public:
    Listed(std::vector<std::string> listing, std::vector<std::string> selection)
        : available(std::move(listing)), selected(std::move(selection)) {
        const ListingMatch match = matchListing(available, selected);
        keepOnly(match.available, available);
        keepOnly(match.kept, selected);
    }

    std::vector<std::string> available;
    std::vector<std::string> selected;
};

TEST(ListingMatch, Without_a_selection_every_file_is_available) {
    const Listed files({"a.met", "b.met"}, {});
    EXPECT_THAT(files.available, ElementsAre("a.met", "b.met"));
    EXPECT_THAT(files.selected, IsEmpty());
}

TEST(ListingMatch, A_selected_file_that_left_the_folder_drops_out) {
    const Listed files({"a.met", "c.met", "d.met"}, {"a.met", "b.met", "c.met"});
    EXPECT_THAT(files.selected, ElementsAre("a.met", "c.met"));
    EXPECT_THAT(files.available, ElementsAre("d.met"));
}

TEST(ListingMatch, Names_that_differ_only_in_case_or_blanks_around_them_are_the_same_file) {
    const Listed files({" REC.met ", "caf\xE9.MET"}, {"CAF\xC9.met", "rec.met"});
    EXPECT_THAT(files.selected, ElementsAre("CAF\xC9.met", "rec.met"));
    EXPECT_THAT(files.available, IsEmpty());
}

TEST(ListingMatch, Of_two_names_that_differ_only_in_blanks_the_last_one_is_taken) {
    const Listed files({" a.met", "a.met"}, {"a.met"});
    EXPECT_THAT(files.selected, ElementsAre("a.met"));
    EXPECT_THAT(files.available, ElementsAre(" a.met"));
}

TEST(ListingMatch, A_name_is_taken_by_one_selected_file_only) {
    const Listed files({"a.met"}, {" a.met", "a.met"});
    EXPECT_THAT(files.selected, ElementsAre("a.met"));
    EXPECT_THAT(files.available, IsEmpty());
}

} // namespace
} // namespace tarnwick
