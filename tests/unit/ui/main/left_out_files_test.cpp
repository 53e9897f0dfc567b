// Files whose names cannot be told: the user hears of them, once for each listing.
#include "support/odd_files.hpp"
#include "unit/ui/main/main_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct LeftOutFiles : MainWorld {
    LeftOutFiles() {
        form.show();
        putOddFile(world, 'd', "in", "\x81.met");
    }
};

TEST_F(LeftOutFiles, The_user_is_told_once_for_each_listing) {
    const auto told = warning("The file \"<U+0081>.met\" in the folder \"D:\\in\" is left out: its "
                              "name has no place in the system's code page.");
    type(form.txtInput, R"(D:\in)");
    leave();
    EXPECT_THAT(form.lstAvailable.items(), ElementsAre("a.met", "b.met", "c.txt"));
    EXPECT_THAT(desktop.messages, ElementsAre(told));
    leave();
    EXPECT_THAT(desktop.messages, ElementsAre(told));
    type(form.txtInExt, "*.met");
    leave();
    EXPECT_THAT(desktop.messages, ElementsAre(told, told));
}

TEST_F(LeftOutFiles, A_file_that_was_not_asked_for_is_not_told) {
    type(form.txtInExt, "*.txt");
    leave();
    type(form.txtInput, R"(D:\in)");
    leave();
    EXPECT_THAT(form.lstAvailable.items(), ElementsAre("c.txt"));
    EXPECT_THAT(desktop.messages, IsEmpty());
}

} // namespace
} // namespace tarnwick
