#include "platform/default_extension.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

constexpr const char* iniFiles = "INI File (*.ini)|*.ini|All Files (*.*)|*.*";

TEST(DefaultExtension, A_name_without_one_gets_that_of_the_first_filter) {
    EXPECT_EQ(withDefaultExtension(R"(C:\a.b\all)", iniFiles), R"(C:\a.b\all.ini)");
    EXPECT_EQ(withDefaultExtension("all", "Batch File (*.bat)|*.bat"), "all.bat");
    EXPECT_EQ(withDefaultExtension("C:all", iniFiles), "C:all.ini");
}

TEST(DefaultExtension, A_name_that_has_one_keeps_it) {
    for (const char* const path : {R"(C:\all.txt)", R"(C:\all.)", R"(C:\.all)", R"(C:\a.b.c)"}) {
        EXPECT_EQ(withDefaultExtension(path, iniFiles), path);
    }
}

TEST(DefaultExtension, What_is_no_name_gets_none) {
    for (const char* const path : {"", R"(C:\)", "C:"}) {
        EXPECT_EQ(withDefaultExtension(path, iniFiles), path);
    }
}

TEST(DefaultExtension, A_filter_that_names_no_single_extension_adds_none) {
    for (const char* const filter :
         {"", "All", "All|*.*", "Two|*.a;*.b", "Odd|x*.a", "Any|*", "Odd|*.a?|More|*.ini"}) {
        EXPECT_EQ(withDefaultExtension("all", filter), "all") << filter;
    }
}

} // namespace
} // namespace tarnwick
