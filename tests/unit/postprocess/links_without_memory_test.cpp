// What becomes of a link when there is no memory to make it.

#include "postprocess/relative_links.hpp"
#include "support/messages.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <new>
#include <utility>

namespace {

thread_local bool nextFails = false;

} // namespace

// As the library's own, but for the one that is made to fail.
// NOLINTBEGIN(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)
void* operator new(std::size_t size) {
    void* const memory = std::exchange(nextFails, false) ? nullptr : std::malloc(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
// NOLINTEND(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)

namespace tarnwick {
namespace {

using testing::ElementsAre;

constexpr std::string_view page = R"(C:\output folder\html\record.html)";
constexpr std::string_view target = R"(C:\output folder\another folder\record.txt)";

TEST(LinksWithoutMemory, A_path_that_cannot_be_made_is_reported_and_empty) {
    ScriptedDesktop desktop;
    nextFails = true;
    const std::string path = GetRelativePath(desktop, page, target);
    EXPECT_EQ(path, "");
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("frmMain", "Private Function GetRelativePath",
                                        ErrorNumber::OutOfMemory)));
    EXPECT_EQ(GetRelativePath(desktop, page, target), R"(..\another folder\record.txt)");
    EXPECT_EQ(desktop.messages.size(), 1U);
}

TEST(LinksWithoutMemory, A_path_whose_slashes_cannot_be_changed_is_reported_and_kept) {
    ScriptedDesktop desktop;
    std::string given(target);
    nextFails = true;
    const std::string path = ChangeMySlashes(desktop, std::move(given));
    EXPECT_EQ(path, target);
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("frmMain", "Private Function ChangeMySlashes",
                                        ErrorNumber::OutOfMemory)));
    EXPECT_EQ(ChangeMySlashes(desktop, std::string(target)),
              "C:/output folder/another folder/record.txt");
    EXPECT_EQ(desktop.messages.size(), 1U);
}

} // namespace
} // namespace tarnwick
