// The program ends at any call of the file system, and the disk is full at points of large pages:
// each page holds its old content or its new one, nothing lies beside it, and the next call mends
// all. Single calls that fail are tried with the other use cases, in unit/faults.

#include "platform/run_time_error.hpp"
#include "support/faulty_files.hpp"
#include "support/messages.hpp"
#include "unit/postprocess/links_world.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace tarnwick {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// Lets some calls pass. Then all fail, as when the program is no more.
class EndedFiles : public WatchedFiles {
  public:
    EndedFiles(Files& files, int callsBefore)
        : EndedFiles(files, std::make_shared<End>(callsBefore)) {}
    [[nodiscard]] bool hasEnded() const { return end_->callsLeft < 0; }

  private:
    struct End : public Observer {
        explicit End(int callsBefore) : callsLeft(callsBefore) {}
        void beforeCall(FileOperation /*operation*/, std::string_view /*path*/) override {
            if (--callsLeft < 0) {
                throw RunTimeError(ErrorNumber::DeviceIO);
            }
        }
        int callsLeft;
    };
    EndedFiles(Files& files, std::shared_ptr<End> end)
        : WatchedFiles(files, end), end_(std::move(end)) {}

    std::shared_ptr<End> end_;
};

// The letter of the drive with the outputs; the input folder lies on C.
class BrokenLinks : public testing::TestWithParam<char> {
  protected:
    struct Page {
        std::string path;
        std::string before;
        std::string after;
    };

    BrokenLinks() {
        const std::string filler(150'000, 'x');
        const auto around = [&](std::string_view link) {
            return std::string(filler).append("\r\n").append(link).append("\r\n").append(filler);
        };
        for (const char* page : {"Html\\rec.html", "Faq\\rec_faq.htm"}) {
            pages.push_back({.path = links.out + page,
                             .before = around("HREF=\"" + links.out + "Text\\rec.txt\""),
                             .after = around("HREF=\"../Text/rec.txt\"")});
        }
    }
    void putPages() {
        for (const Page& page : pages) {
            links.world.write(page.path, page.before);
        }
        links.desktop.messages.clear();
    }
    void expectOldOrNew() {
        for (const Page& page : pages) {
            const std::string found = links.world.read(page.path);
            EXPECT_TRUE(found == page.before || found == page.after) << found.size();
        }
    }
    // The next call, with nothing broken any more.
    void expectTheNextCallToMendAll() {
        links.desktop.messages.clear();
        links.fix();
        EXPECT_THAT(links.desktop.messages, IsEmpty());
        for (const Page& page : pages) {
            EXPECT_TRUE(links.world.read(page.path) == page.after);
        }
        expectNothingLeft();
    }
    void expectNothingLeft() {
        EXPECT_THAT(files().listFiles("C:\\in", "").names, IsEmpty());
        EXPECT_THAT(files().listFiles(links.out + "Html", "").names, ElementsAre("rec.html"));
        EXPECT_THAT(files().listFiles(links.out + "Faq", "").names, ElementsAre("rec_faq.htm"));
    }
    Files& files() { return links.world.files(); }

    LinksWorld links{GetParam()};
    std::vector<Page> pages;
};

TEST_P(BrokenLinks, After_an_end_at_any_call_each_page_is_old_or_new_and_the_next_call_mends_all) {
    int calls = 0;
    for (bool ended = true; ended; ++calls) {
        SCOPED_TRACE(calls);
        putPages();
        EndedFiles ending(files(), calls);
        links.fix(ending);
        ended = ending.hasEnded();
        expectOldOrNew();
        expectTheNextCallToMendAll();
    }
    EXPECT_GT(calls, 30);
}

TEST_P(BrokenLinks, A_disk_that_is_full_at_any_point_leaves_whole_pages_and_nothing_beside_them) {
    for (std::size_t room = 0; room < 1'000'000; room += 39'989) {
        SCOPED_TRACE(room);
        putPages();
        FaultyFiles full(files());
        full.fillDiskAfter(room);
        links.fix(full);
        EXPECT_THAT(links.desktop.messages, AnyOf(IsEmpty(), SizeIs(1)));
        expectOldOrNew();
        expectNothingLeft();
        expectTheNextCallToMendAll();
    }
}

TEST_P(BrokenLinks, A_full_disk_that_is_told_only_on_closing_leaves_the_old_pages) {
    const int filesClosed = GetParam() == 'C' ? 1 : 2; // for the first page: the copy beside it too
    for (int nth = 1; nth <= filesClosed; ++nth) {
        SCOPED_TRACE(nth);
        putPages();
        FaultyFiles faulty(files());
        faulty.failAt(FileOperation::Close, nth, RunTimeError(ErrorNumber::DiskFull));
        links.fix(faulty);
        EXPECT_THAT(links.desktop.messages,
                    ElementsAre(errorReport("frmMain", "Private Sub FixRelativePaths()",
                                            ErrorNumber::DiskFull)));
        for (const Page& page : pages) {
            EXPECT_TRUE(links.world.read(page.path) == page.before);
        }
        expectNothingLeft();
    }
}

TEST_P(BrokenLinks, What_may_not_take_the_place_of_a_page_leaves_no_trace) {
    putPages();
    links.world.makeReadOnly(pages[0].path);
    links.fix();
    EXPECT_THAT(links.desktop.messages, SizeIs(1));
    for (const Page& page : pages) {
        EXPECT_TRUE(links.world.read(page.path) == page.before);
    }
    expectNothingLeft();
}

INSTANTIATE_TEST_SUITE_P(, BrokenLinks, testing::Values('C', 'D'), [](const auto& drive) {
    return drive.param == 'C' ? std::string("on_one_volume") : std::string("on_two_volumes");
});

} // namespace
} // namespace tarnwick
