// The real program, ended in the middle of its work again and again: what it writes is as it was or
// as it should be, and the next run clears away what was left.
//
// TARNWICK_TORTURE in the environment: how often each work is cut short.

#include "program/installation.hpp"
#include "program/running_program.hpp"
#include "support/eventually.hpp"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace tarnwick::test {
namespace {

namespace fs = std::filesystem;
using std::chrono::microseconds;
using std::chrono::steady_clock;

// Numbers of the program's menu entry and controls.
constexpr WPARAM menuSave = 0x4005;
constexpr int chkfixdoc = 221;
constexpr int cmdSelectAll = 239;
constexpr int cmdOK = 245;
// Between two looks at what is there for moments only.
constexpr microseconds aMoment(200);
constexpr auto mainTitle = "Tarnwick - TARNWICK.ini";

int endings(int usually) {
    const char* const asked = std::getenv("TARNWICK_TORTURE");
    const int count =
        asked == nullptr ? usually : static_cast<int>(std::strtol(asked, nullptr, 10));
    if (count <= 0) {
        throw std::runtime_error("TARNWICK_TORTURE is no number of times");
    }
    return count;
}

class Torture : public testing::Test {
  public:
    Torture(const Torture&) = delete;
    Torture& operator=(const Torture&) = delete;
    Torture(Torture&&) = delete;
    Torture& operator=(Torture&&) = delete;
    ~Torture() override { forgetStoredSettings(); }

  protected:
    Torture() {
        forgetStoredSettings();
        place.replaceMP("tests/window/trying_tool.exe"); // which does nothing
    }

    // A moment before `longest` is over.
    void waitAWhile(microseconds longest) {
        std::uniform_int_distribution<long> moment(0, static_cast<long>(longest.count()));
        std::this_thread::sleep_for(microseconds(moment(random_)));
    }

    [[nodiscard]] std::vector<std::string> filesIn(std::string_view below) const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(place.path(below))) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    Installation place;

  private:
    static void forgetStoredSettings() { RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Corvane"); }

    std::mt19937 random_{20261121};
};

void click(HWND window, int control) {
    PostMessageA(GetDlgItem(window, control), BM_CLICK, 0, 0);
}

class SavingTorture : public Torture {
  protected:
    static constexpr int savesAtOnce = 40;

    // Saves again and again, with a changed definition each time.
    static void startSaving(HWND window) {
        for (int i = 0; i < savesAtOnce; ++i) {
            click(window, chkfixdoc);
            PostMessageA(window, WM_COMMAND, menuSave, 0);
        }
    }

    // How the file looks with the box off and with the box on, and how long all the saving takes.
    void seeItUndisturbed() {
        RunningProgram program(place.program(), std::string());
        const HWND window = program.window(mainTitle);
        PostMessageA(window, WM_COMMAND, menuSave, 0);
        off = savedWith("FIX DOC=0");
        click(window, chkfixdoc);
        PostMessageA(window, WM_COMMAND, menuSave, 0);
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
    int leftovers = 0;
    for (int i = endings(20); i > 0; --i) {
        {
            RunningProgram program(place.program(), std::string());
            startSaving(program.window(mainTitle));
            waitAWhile(whole);
        }
        ASSERT_THAT(place.read("TARNWICK.ini"), testing::AnyOf(off, on)) << i << " to go";
        leftovers += filesIn("") == before ? 0 : 1;
    }
    place.write("TARNWICK.ini", off);
    ASSERT_NO_FATAL_FAILURE(seeItUndisturbed());
    EXPECT_EQ(filesIn(""), before);
    std::cout << leftovers << " of " << endings(20) << " left a temporary file\n";
}

class LinksTorture : public Torture {
  protected:
    static constexpr int linesOfAPage = 200'000;

    LinksTorture() {
        place.write("in\\a.met", record("Lakes"));
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

    void putPages() const {
        place.write("out\\a.html", htmlBefore);
        place.write("out\\a_faq.htm", faqBefore);
    }

    [[nodiscard]] bool isRewriting() const { return place.exists("in\\tarnwick.tmp"); }
    // Without opening it: a page that somebody reads cannot be replaced.
    [[nodiscard]] std::size_t sizeOf(std::string_view below) const {
        WIN32_FILE_ATTRIBUTE_DATA data{};
        GetFileAttributesExA(place.path(below).c_str(), GetFileExInfoStandard, &data);
        return data.nFileSizeLow;
    }

    // Up to the moment at which the first page is begun.
    void startRewriting(HWND window) const {
        click(window, cmdSelectAll);
        click(window, cmdOK);
        ASSERT_TRUE(eventually([this] { return isRewriting(); }, aMoment))
            << "no page is rewritten";
    }

    void seeItUndisturbed() {
        putPages();
        RunningProgram program(place.program(), std::string());
        ASSERT_NO_FATAL_FAILURE(startRewriting(program.window(mainTitle)));
        const auto begin = steady_clock::now();
        const auto isDone = [this] {
            return !isRewriting() && sizeOf("out\\a_faq.htm") == faqAfter.size();
        };
        ASSERT_TRUE(eventually(isDone, aMoment));
        whole = std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
        ASSERT_EQ(place.read("out\\a.html"), htmlAfter);
        ASSERT_EQ(place.read("out\\a_faq.htm"), faqAfter);
    }

    std::string htmlBefore = page(place.path("out\\a_faq.htm"));
    std::string htmlAfter = page("a_faq.htm");
    std::string faqBefore = page(place.path("out\\a.html"));
    std::string faqAfter = page("a.html");
    microseconds whole{};
};

TEST_F(LinksTorture, Ended_while_it_rewrites_links_the_program_leaves_each_page_old_or_new) {
    ASSERT_NO_FATAL_FAILURE(seeItUndisturbed());
    const auto before = filesIn("in");
    int cutShort = 0;
    for (int i = endings(5); i > 0; --i) {
        putPages();
        // What the last one left would be taken for the beginning of this one.
        fs::remove(place.path("in\\tarnwick.tmp"));
        {
            RunningProgram program(place.program(), std::string());
            ASSERT_NO_FATAL_FAILURE(startRewriting(program.window(mainTitle)));
            waitAWhile(whole);
        }
        const std::string html = place.read("out\\a.html");
        const std::string faq = place.read("out\\a_faq.htm");
        ASSERT_TRUE(html == htmlBefore || html == htmlAfter) << i << " to go";
        ASSERT_TRUE(faq == faqBefore || faq == faqAfter) << i << " to go";
        cutShort += faq == faqBefore ? 1 : 0;
    }
    ASSERT_NO_FATAL_FAILURE(seeItUndisturbed());
    EXPECT_EQ(filesIn("in"), before);
    EXPECT_THAT(filesIn("out"), testing::UnorderedElementsAre("a.html", "a_faq.htm"));
    std::cout << cutShort << " of " << endings(5) << " cut short\n";
}

} // namespace
} // namespace tarnwick::test
