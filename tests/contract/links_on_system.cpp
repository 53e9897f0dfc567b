// The rewriting of links on the files of the system itself: what a move into place does there.

#include "contract/contract_fixture.hpp"
#include "postprocess/relative_links.hpp"
#include "support/messages.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>

namespace tarnwick {
namespace {

using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class LinksOnSystem : public ContractTest {
  protected:
    LinksOnSystem() {
        MyDefaultSettings(definition);
        files.createFolder(in("records"));
        files.createFolder(in("out"));
        definition.sInputFolder = in("records");
        usePagesIn(in("out"));
    }
    void usePagesIn(const std::string& folder) {
        for (OutputDefinition& row : definition.MPOutputs) {
            row.sOutputFolder = folder;
        }
        page = folder + "\\caf\xE9 1.html";
        before = "<base href=\"" + page + "\">\nHREF=\"" + folder + "\\caf\xE9 1.txt\"\r\n";
    }
    void fix() { FixRelativePaths(definition, files, desktop, in("records"), "caf\xE9 1.met"); }
    // The page as it was, one report of that error, and nothing left behind.
    void expectReported(ErrorNumber number) {
        EXPECT_EQ(bytesOf(files, page), before);
        ASSERT_THAT(desktop.messages, SizeIs(1));
        const auto report = errorReport("frmMain", "Private Sub FixRelativePaths()", number).text;
        EXPECT_THAT(desktop.messages[0].text, StartsWith(report.substr(0, report.rfind('0'))));
        expectNothingLeft();
        desktop.messages.clear();
    }
    void expectRewritten() {
        EXPECT_THAT(desktop.messages, IsEmpty());
        EXPECT_EQ(bytesOf(files, page),
                  "<base href=\"caf\xE9 1.html\">\nHREF=\"caf\xE9 1.txt\"\r\n");
        expectNothingLeft();
    }
    void expectNothingLeft() {
        EXPECT_EQ(files.listFiles(in("records"), "").names, Names{});
        EXPECT_EQ(files.listFiles(page.substr(0, page.rfind('\\')), "").names,
                  Names{"caf\xE9 1.html"});
    }

    BatchDefinition definition;
    ScriptedDesktop desktop;
    std::string page;
    std::string before;
};

TEST_F(LinksOnSystem, A_hidden_temporary_file_does_not_hide_the_page) {
    const std::string temporary = in("records\\tarnwick.tmp");
    putBytes(files, temporary, "half a page");
    platform->hide(temporary);
    putBytes(files, page, before);
    fix();
    expectRewritten();
}

TEST_F(LinksOnSystem, A_page_is_rewritten_in_its_place) {
    putBytes(files, page, before);
    fix();
    expectRewritten();
    fix();
    expectRewritten();
}

TEST_F(LinksOnSystem, A_page_on_another_volume_than_the_input_folder_is_rewritten_too) {
    usePagesIn(platform->otherVolume());
    putBytes(files, page, before);
    fix();
    expectRewritten();
}

TEST_F(LinksOnSystem, A_page_that_another_program_keeps_to_itself_stays_as_it_is) {
    for (const bool elsewhere : {false, true}) {
        SCOPED_TRACE(elsewhere);
        if (elsewhere) {
            usePagesIn(platform->otherVolume());
        }
        putBytes(files, page, before);
        auto kept = platform->keep(page);
        fix();
        kept.reset();
        expectReported(ErrorNumber::PermissionDenied);
    }
}

TEST_F(LinksOnSystem, A_page_that_another_program_reads_stays_as_it_is) {
    for (const bool elsewhere : {false, true}) {
        SCOPED_TRACE(elsewhere);
        if (elsewhere) {
            usePagesIn(platform->otherVolume());
        }
        putBytes(files, page, before);
        auto reader = files.openForReading(page);
        fix();
        reader.reset();
        expectReported(ErrorNumber::PermissionDenied);
        fix();
        expectRewritten();
    }
}

TEST_F(LinksOnSystem, A_read_only_page_stays_as_it_is) {
    for (const bool elsewhere : {false, true}) {
        SCOPED_TRACE(elsewhere);
        if (elsewhere) {
            usePagesIn(platform->otherVolume());
        }
        putBytes(files, page, before);
        platform->makeReadOnly(page);
        fix();
        expectReported(ErrorNumber::PathFileAccess);
    }
}

} // namespace
} // namespace tarnwick
