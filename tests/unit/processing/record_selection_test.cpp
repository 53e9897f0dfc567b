#include "processing/record_selection.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(RecordSelection, A_first_listing_is_all_available) {
    RecordSelection records;
    records.load({"a.met", "b.met"});
    EXPECT_THAT(records.available(), ElementsAre("a.met", "b.met"));
    EXPECT_THAT(records.selected(), IsEmpty());
}

TEST(RecordSelection, Selecting_all_keeps_the_order_by_name) {
    RecordSelection records;
    records.load({"b.met", "d.met"});
    records.selectAll();
    records.load({"A.met", "b.met", "C.met", "d.met"});
    EXPECT_THAT(records.available(), ElementsAre("A.met", "C.met"));
    records.selectAll();
    EXPECT_THAT(records.available(), IsEmpty());
    EXPECT_THAT(records.selected(), ElementsAre("A.met", "b.met", "C.met", "d.met"));
}

TEST(RecordSelection, A_selected_file_that_left_the_folder_drops_out) {
    RecordSelection records;
    records.load({"a.met", "b.met", "c.met"});
    records.selectAll();
    records.load({"a.met", "c.met", "d.met"});
    EXPECT_THAT(records.selected(), ElementsAre("a.met", "c.met"));
    EXPECT_THAT(records.available(), ElementsAre("d.met"));
}

TEST(RecordSelection, Names_that_differ_only_in_case_or_blanks_around_them_are_the_same_file) {
    RecordSelection records;
    records.load({"CAF\xC9.met", "rec.met"});
    records.selectAll();
    records.load({" REC.met ", "caf\xE9.MET"});
    EXPECT_THAT(records.selected(), ElementsAre("CAF\xC9.met", "rec.met"));
    EXPECT_THAT(records.available(), IsEmpty());
}

TEST(RecordSelection, Of_two_names_that_differ_only_in_blanks_the_last_one_is_taken) {
    RecordSelection records;
    records.load({"a.met"});
    records.selectAll();
    records.load({" a.met", "a.met"});
    EXPECT_THAT(records.selected(), ElementsAre("a.met"));
    EXPECT_THAT(records.available(), ElementsAre(" a.met"));
}

TEST(RecordSelection, A_name_is_taken_by_one_selected_file_only) {
    RecordSelection records;
    records.load({" a.met", "a.met"});
    records.selectAll();
    records.load({"a.met"});
    EXPECT_THAT(records.selected(), ElementsAre("a.met"));
    EXPECT_THAT(records.available(), IsEmpty());
}

} // namespace
} // namespace tarnwick
