// Every call of the file system breaks in its turn, and the disk is full at every byte: each page
// holds its old content or its new one, and the next call clears away what is left.

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

// Lets some calls pass. Then one fails, or, as when the program is no more, that one and all
// behind it.
class BreakingFiles : public WatchedFiles {
  public:
    enum class Then { GoOn, Stop };

    BreakingFiles(Files& files, int callsBefore, Then then)
        : BreakingFiles(files, std::make_shared<Breaker>(callsBefore, then)) {}
    [[nodiscard]] bool hasBroken() const { return breaker_->callsLeft < 0; }

  private:
    struct Breaker : public Observer {
        Breaker(int callsBefore, Then next) : callsLeft(callsBefore), then(next) {}
        void beforeCall(FileOperation /*operation*/, std::string_view /*path*/) override {
            --callsLeft;
            if (callsLeft == -1 || (callsLeft < -1 && then == Then::Stop)) {
                throw RunTimeError(ErrorNumber::DeviceIO);
            }
        }
        int callsLeft;
        Then then;
    };
    BreakingFiles(Files& files, std::shared_ptr<Breaker> breaker)
        : WatchedFiles(files, breaker), breaker_(std::move(breaker)) {}

    std::shared_ptr<Breaker> breaker_;
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
    for (bool broken = true; broken; ++calls) {
        SCOPED_TRACE(calls);
        putPages();
        BreakingFiles breaking(files(), calls, BreakingFiles::Then::Stop);
        links.fix(breaking);
        broken = breaking.hasBroken();
        expectOldOrNew();
        expectTheNextCallToMendAll();
    }
    EXPECT_GT(calls, 30);
}

TEST_P(BrokenLinks, After_one_failed_call_each_page_is_old_or_new_and_one_report_is_shown) {
    int calls = 0;
    int reports = 0;
    for (bool broken = true; broken; ++calls) {
        SCOPED_TRACE(calls);
        putPages();
        BreakingFiles breaking(files(), calls, BreakingFiles::Then::GoOn);
        links.fix(breaking);
        broken = breaking.hasBroken();
        EXPECT_THAT(links.desktop.messages,
                    AnyOf(IsEmpty(), // where a folder or file only seemed not to exist
                          ElementsAre(errorReport("frmMain", "Private Sub FixRelativePaths()",
                                                  ErrorNumber::DeviceIO))));
        reports += static_cast<int>(links.desktop.messages.size());
        expectOldOrNew();
        expectTheNextCallToMendAll();
    }
    EXPECT_GT(reports, 20);
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
