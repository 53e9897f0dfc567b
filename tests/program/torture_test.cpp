// The real program, ended in the middle of its work again and again: what it writes is as it was or
// as it should be, and the next run clears away what was left.
//
// TARNWICK_TORTURE in the environment: how often each work is cut short.

#include "program/installation.hpp"
#include "program/running_program.hpp"
#include "program/torture.hpp"
#include "support/eventually.hpp"
#include "window/control_texts.hpp"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace tarnwick::test {
namespace {

namespace fs = std::filesystem;
using std::chrono::microseconds;
using std::chrono::steady_clock;

// Between two looks at what is there for moments only.
constexpr std::chrono::milliseconds aMoment(1);
constexpr auto mainTitle = "Tarnwick - TARNWICK.ini";

// Of the entry that saves: Wine tells no other process what a menu holds. With a wrong number
// nothing would be saved, which seeItUndisturbed sees.
constexpr WPARAM menuSave = 0x4005;

void save(HWND window) {
    PostMessageA(window, WM_COMMAND, menuSave, 0);
}

void click(HWND window, std::string_view control) {
    for (const auto& [child, name] : probe::namesOfControls(window)) {
        if (name == control) {
            PostMessageA(child, BM_CLICK, 0, 0);
            return;
        }
    }
    throw std::runtime_error("no control " + std::string(control));
}

class Torture : public testing::Test {
  protected:
    Torture() {
        place.replaceMP("tests/window/trying_tool.exe"); // which does nothing
    }

    [[nodiscard]] std::vector<std::string> filesIn(std::string_view below) const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(place.path(below))) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    Installation place;
    RandomMoments moments;
};

class SavingTorture : public Torture {
  protected:
    static constexpr int savesAtOnce = 40;

    // Saves again and again, with a changed definition each time.
    static void startSaving(HWND window) {
        for (int i = 0; i < savesAtOnce; ++i) {
            click(window, "chkfixdoc");
            save(window);
        }
    }

    // How the file looks with the box off and with the box on, and how long all the saving takes.
    void seeItUndisturbed() {
        RunningProgram program(place.program(), std::string());
        const HWND window = program.window(mainTitle);
        save(window);
        off = savedWith("FIX DOC=0");
        click(window, "chkfixdoc");
        save(window);
        on = savedWith("FIX DOC=1");
        const auto begin = steady_clock::now();
        startSaving(window);
        PostMessageA(window, WM_CLOSE, 0, 0);
        ASSERT_EQ(program.exitCode(), 0U);
        whole = std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
    }

    [[nodiscard]] std::string savedWith(const std::string& entry) const {
        EXPECT_TRUE(eventually([&] { return place.read("TARNWICK.ini").contains(entry); }));
        return place.read("TARNWICK.ini");
    }

    std::string off;
    std::string on;
    microseconds whole{};
};

TEST_F(SavingTorture, Ended_while_it_saves_the_program_leaves_the_old_definition_or_the_new_one) {
    place.write("TARNWICK.ini", place.definition());
    ASSERT_NO_FATAL_FAILURE(seeItUndisturbed());
    const auto before = filesIn("");
    const int times = endings(20);
    int leftovers = 0;
    for (int i = times; i > 0; --i) {
        {
            RunningProgram program(place.program(), std::string());
            startSaving(program.window(mainTitle));
            moments.waitWithin(whole);
        }
        ASSERT_THAT(place.read("TARNWICK.ini"), testing::AnyOf(off, on)) << i << " to go";
        leftovers += filesIn("") == before ? 0 : 1;
    }
    place.write("TARNWICK.ini", off);
    ASSERT_NO_FATAL_FAILURE(seeItUndisturbed());
    EXPECT_EQ(filesIn(""), before);
    expectSomeInTheMiddle(leftovers, times); // with the temporary file still there
}

class LinksTorture : public Torture {
  protected:
    static constexpr int linesOfAPage = 100'000;

    struct Page {
        std::string path;
        std::string before;
        std::string after;
    };

    LinksTorture() {
        for (const std::string name : {"a", "b"}) {
            place.write("in\\" + name + ".met", record("Lakes"));
            addPage(name + ".html", name + "_faq.htm");
            addPage(name + "_faq.htm", name + ".html");
        }
        place.write(
            "TARNWICK.ini",
            "Process MP=1\r\nInput File Extension=*.met\r\nInput Folder=" + place.path("in") +
                "\r\nConvert HyperLink To Relative Path=True\r\nGRID_Html=" + place.path("out") +
                "\r\nGRID_Faq=" + place.path("out") + "\r\n");
    }

    // A page of some megabytes that links to the other one.
    [[nodiscard]] static std::string page(const std::string& target) {
        std::string text;
        for (int line = 0; line < linesOfAPage; ++line) {
            text +=
                "<p>Line " + std::to_string(line) + " <a HREF=\"" + target + "\">there</a></p>\r\n";
        }
        return text;
    }

    void addPage(const std::string& name, const std::string& target) {
        pages.push_back({.path = "out\\" + name,
                         .before = page(place.path("out\\" + target)),
                         .after = page(target)});
    }
    void putPages() const {
        for (const Page& page : pages) {
            place.write(page.path, page.before);
        }
    }

    [[nodiscard]] bool isRewriting() const { return place.exists("in\\tarnwick.tmp"); }
    // Without opening it: a page that somebody reads cannot be replaced.
    [[nodiscard]] std::size_t sizeOf(std::string_view below) const {
        WIN32_FILE_ATTRIBUTE_DATA data{};
        GetFileAttributesExA(place.path(below).c_str(), GetFileExInfoStandard, &data);
        return data.nFileSizeLow;
    }

    // Up to the moment at which the first page is begun; or is done, where nobody looked before.
    void startRewriting(HWND window) const {
        click(window, "cmdSelectFiles2");
        click(window, "cmdOK");
        const Page& first = pages.front();
        ASSERT_TRUE(eventually(
            [&] { return isRewriting() || sizeOf(first.path) == first.after.size(); }, aMoment))
            << "no page is rewritten";
    }

    void seeItUndisturbed() {
        putPages();
        RunningProgram program(place.program(), std::string());
        ASSERT_NO_FATAL_FAILURE(startRewriting(program.window(mainTitle)));
        const auto begin = steady_clock::now();
        const auto isDone = [this] {
            return !isRewriting() && sizeOf(pages.back().path) == pages.back().after.size();
        };
        ASSERT_TRUE(eventually(isDone, aMoment));
        whole = std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
        for (const Page& page : pages) {
            ASSERT_TRUE(place.read(page.path) == page.after) << page.path;
        }
    }

    std::vector<Page> pages; // of two records, in the order in which they are rewritten
    microseconds whole{};
};

TEST_F(LinksTorture, Ended_while_it_rewrites_links_the_program_leaves_each_page_old_or_new) {
    ASSERT_NO_FATAL_FAILURE(seeItUndisturbed());
    const auto before = filesIn("in");
    const int times = endings(5);
    int cutShort = 0;
    for (int i = times; i > 0; --i) {
        putPages();
        // What the last one left would be taken for the beginning of this one.
        fs::remove(place.path("in\\tarnwick.tmp"));
        {
            RunningProgram program(place.program(), std::string());
            ASSERT_NO_FATAL_FAILURE(startRewriting(program.window(mainTitle)));
            moments.waitWithin(whole);
        }
        std::string last;
        for (const Page& page : pages) {
            last = place.read(page.path);
            ASSERT_TRUE(last == page.before || last == page.after)
                << page.path << ", " << i << " to go";
        }
        cutShort += last == pages.back().before ? 1 : 0;
    }
    ASSERT_NO_FATAL_FAILURE(seeItUndisturbed());
    EXPECT_EQ(filesIn("in"), before);
    EXPECT_THAT(filesIn("out"),
                testing::UnorderedElementsAre("a.html", "a_faq.htm", "b.html", "b_faq.htm"));
    expectSomeInTheMiddle(cutShort, times);
}

} // namespace
} // namespace tarnwick::test
