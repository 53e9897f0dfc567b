#include "platform/run_time_error.hpp"
#include "postprocess/relative_links.hpp"
#include "support/faulty_files.hpp"
#include "support/messages.hpp"
#include "support/outputs.hpp"
#include "support/recording_files.hpp"
#include "unit/postprocess/links_world.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(RelativePath, Common_folders_fall_away_and_each_other_one_is_a_step_up) {
    EXPECT_EQ(relativePath("C:\\out\\html\\rec.html", "C:\\out\\faq\\rec.faq"), "..\\faq\\rec.faq");
    EXPECT_EQ(relativePath("C:\\out\\faq\\rec.faq", "C:\\out\\text\\rec.txt"), "..\\text\\rec.txt");
    EXPECT_EQ(relativePath("C:\\a\\b\\c\\rec.html", "C:\\a\\rec.txt"), "..\\..\\rec.txt");
    EXPECT_EQ(relativePath("C:\\a\\rec.html", "C:\\a\\b\\c\\rec.txt"), "b\\c\\rec.txt");
}

TEST(RelativePath, In_the_same_folder_the_name_is_left) {
    EXPECT_EQ(relativePath("C:\\out\\rec.html", "C:\\out\\rec.faq"), "rec.faq");
}

TEST(RelativePath, Paths_that_differ_only_in_letter_case_are_treated_as_common) {
    EXPECT_EQ(relativePath("c:\\Out\\DONN\xC9"
                           "ES\\rec.html",
                           "C:\\OUT\\donn\xE9"
                           "es\\rec.txt"),
              "rec.txt");
}

TEST(RelativePath, Between_drives_the_target_stays_whole) {
    EXPECT_EQ(relativePath("C:\\out\\rec.html", "D:\\out\\rec.txt"), "..\\..\\D:\\out\\rec.txt");
}

TEST(RelativePath, A_folder_that_only_begins_alike_is_another) {
    EXPECT_EQ(relativePath("C:\\out\\rec.html", "C:\\output\\rec.txt"), "..\\output\\rec.txt");
    EXPECT_EQ(relativePath("C:\\output\\rec.html", "C:\\out\\rec.txt"), "..\\out\\rec.txt");
}

TEST(RelativePath, A_target_that_is_shorter_than_the_next_folder_stops_it) {
    EXPECT_EQ(relativePath("C:\\folder\\rec.html", "C:\\a"), "..\\a");
    EXPECT_EQ(relativePath("C:\\folder\\rec.html", "C:\\folder"), "..\\folder");
    EXPECT_EQ(relativePath("C:\\folder\\rec.html", "C:"), "..\\..\\C:");
    EXPECT_EQ(relativePath("C:\\folder\\rec.html", ""), "..\\..\\");
    EXPECT_EQ(relativePath("rec.html", "C:\\a"), "C:\\a");
}

TEST(RelativePath, On_a_network_share_too) {
    EXPECT_EQ(relativePath("\\\\srv\\share\\a\\rec.html", "\\\\SRV\\share\\b\\rec.txt"),
              "..\\b\\rec.txt");
}

TEST(RelativePath, Every_backslash_becomes_a_slash) {
    EXPECT_EQ(withSlashes("..\\a b\\\\c/d\\"), "../a b//c/d/");
    EXPECT_EQ(withSlashes(""), "");
}

TEST(RelativePath, The_second_byte_of_a_character_is_no_backslash) {
    for (const auto& [number, letter] :
         {std::pair(932U, "\x95\x5C"), std::pair(936U, "\x81\x5C"), std::pair(950U, "\xA5\x5C")}) {
        const CodePage page(number);
        const std::string folder = std::string("C:\\") + letter;
        EXPECT_EQ(relativePath(folder + "\\html\\r.html", folder + "\\r.txt", page), "..\\r.txt");
        EXPECT_EQ(relativePath("C:\\a\\r.html", folder + "\\r.txt", page),
                  std::string("..\\") + letter + "\\r.txt");
        EXPECT_EQ(relativePath(folder + "\\r.html", "C:\\b\\r.txt", page), "..\\b\\r.txt");
        EXPECT_EQ(withSlashes(folder + "\\r.txt", page), std::string("C:/") + letter + "/r.txt");
    }
}

class RelativeLinks : public LinksWorld, public testing::Test {
  protected:
    KnownFolders folders{world.files()};

    void putHtml(std::string_view bytes) { world.write(out + "Html\\rec.html", bytes); }
    void putFaq(std::string_view bytes) { world.write(out + "Faq\\rec_faq.htm", bytes); }
    [[nodiscard]] std::string html() const { return world.read(out + "Html\\rec.html"); }
    [[nodiscard]] std::string faq() const { return world.read(out + "Faq\\rec_faq.htm"); }
    [[nodiscard]] static Message report(ErrorNumber number, std::int32_t lastDllError = 0) {
        return errorReport("frmMain", "Private Sub FixRelativePaths()", number, lastDllError);
    }
};

TEST_F(RelativeLinks, The_html_page_links_to_all_other_outputs_but_the_error_report) {
    putHtml("<base href=\"C:\\out\\Html\\rec.html\">\r\n" + hrefLine("C:\\out\\Faq\\rec_faq.htm") +
            hrefLine("C:\\out\\Text\\rec.txt") + hrefLine("C:\\out\\Sgml\\rec.sgml") +
            hrefLine("C:\\out\\Xml\\rec.xml") + hrefLine("C:\\out\\Dif\\rec.dif") +
            hrefLine("C:\\out\\Error\\rec.err") + hrefLine("C:\\out\\Html\\rec.html"));
    fix();
    EXPECT_EQ(html(), "<base href=\"rec.html\">\r\n" + hrefLine("../Faq/rec_faq.htm") +
                          hrefLine("../Text/rec.txt") + hrefLine("../Sgml/rec.sgml") +
                          hrefLine("../Xml/rec.xml") + hrefLine("../Dif/rec.dif") +
                          hrefLine("C:\\out\\Error\\rec.err") +
                          hrefLine("C:\\out\\Html\\rec.html"));
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(RelativeLinks, The_faq_page_links_to_the_html_page_and_not_to_itself) {
    putFaq("<BASE HREF=\"C:\\out\\Faq\\rec_faq.htm\">\r\n" + hrefLine("C:\\out\\Html\\rec.html") +
           hrefLine("C:\\out\\Text\\rec.txt") + hrefLine("C:\\out\\Sgml\\rec.sgml") +
           hrefLine("C:\\out\\Xml\\rec.xml") + hrefLine("C:\\out\\Dif\\rec.dif") +
           hrefLine("C:\\out\\Error\\rec.err") + hrefLine("C:\\out\\Faq\\rec_faq.htm"));
    fix();
    EXPECT_EQ(faq(), "<BASE HREF=\"rec_faq.htm\">\r\n" + hrefLine("../Html/rec.html") +
                         hrefLine("../Text/rec.txt") + hrefLine("../Sgml/rec.sgml") +
                         hrefLine("../Xml/rec.xml") + hrefLine("../Dif/rec.dif") +
                         hrefLine("C:\\out\\Error\\rec.err") +
                         hrefLine("C:\\out\\Faq\\rec_faq.htm"));
}

TEST_F(RelativeLinks, Only_the_base_name_of_the_record_counts) {
    putHtml(hrefLine("C:\\out\\Text\\rec.txt"));
    FixRelativePaths(definition, world.files(), desktop, "Q:\\nowhere", " D:\\other\\rec.old ");
    EXPECT_EQ(html(), hrefLine("../Text/rec.txt"));
}

TEST_F(RelativeLinks, Without_page_rows_or_with_their_folders_missing_nothing_is_opened) {
    putHtml(hrefLine("C:\\out\\Text\\rec.txt"));
    putFaq(hrefLine("C:\\out\\Text\\rec.txt"));
    output(definition, "Html").sOutputFolder = "C:\\missing";
    output(definition, "Faq").sFileType = "Info_file";
    RecordingFiles recording(world.files());
    fix(recording);
    for (const auto operation :
         {FileOperation::OpenForReading, FileOperation::Create, FileOperation::CreateNew,
          FileOperation::Remove, FileOperation::MoveOver}) {
        EXPECT_EQ(recording.count(operation), 0) << operation;
    }
    EXPECT_EQ(html(), hrefLine("C:\\out\\Text\\rec.txt"));
    EXPECT_EQ(faq(), html());
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(RelativeLinks, A_page_that_does_not_exist_or_is_hidden_is_passed_over) {
    putFaq(hrefLine("C:\\out\\Text\\rec.txt"));
    world.hide(out + "Faq\\rec_faq.htm");
    fix();
    EXPECT_EQ(faq(), hrefLine("C:\\out\\Text\\rec.txt"));
    EXPECT_FALSE(world.exists(out + "Html\\rec.html"));
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(RelativeLinks, The_build_marks_are_not_consulted) {
    for (OutputDefinition& row : definition.MPOutputs) {
        row.bBuild = false;
    }
    putHtml(hrefLine("C:\\out\\Text\\rec.txt"));
    fix();
    EXPECT_EQ(html(), hrefLine("../Text/rec.txt"));
}

TEST_F(RelativeLinks, A_target_is_one_if_its_folder_exists_whether_or_not_the_file_does) {
    output(definition, "Sgml").sOutputFolder = "C:\\missing";
    putHtml(hrefLine("C:\\missing\\rec.sgml") + hrefLine("C:\\out\\Dif\\rec.dif"));
    fix();
    EXPECT_EQ(html(), hrefLine("C:\\missing\\rec.sgml") + hrefLine("../Dif/rec.dif"));
}

TEST_F(RelativeLinks, Types_are_compared_without_regard_to_case) {
    output(definition, "Html").sFileType = "HTML";
    output(definition, "Text").sFileType = "tEXT";
    putHtml(hrefLine("C:\\out\\Text\\rec.txt"));
    fix();
    EXPECT_EQ(html(), hrefLine("../Text/rec.txt"));
}

TEST_F(RelativeLinks, A_later_row_of_the_same_type_replaces_an_earlier_one_if_its_folder_exists) {
    world.makeFolder("C:\\late");
    output(definition, "Dif") = {
        .bBuild = false, .sFileType = "text", .sExtension = ".asc", .sOutputFolder = "C:\\late"};
    putHtml(hrefLine("C:\\out\\Text\\rec.txt") + hrefLine("C:\\late\\rec.asc"));
    fix();
    EXPECT_EQ(html(), hrefLine("C:\\out\\Text\\rec.txt") + hrefLine("../../late/rec.asc"));
    output(definition, "text").sOutputFolder = "C:\\missing";
    fix();
    EXPECT_EQ(html(), hrefLine("../Text/rec.txt") + hrefLine("../../late/rec.asc"));
}

TEST_F(RelativeLinks, A_folder_may_be_given_with_its_final_backslash) {
    output(definition, "Html").sOutputFolder += '\\';
    output(definition, "Text").sOutputFolder += '\\';
    definition.sInputFolder += '\\';
    putHtml("<base href=\"C:\\out\\Html\\rec.html\">" + hrefLine("C:\\out\\Text\\rec.txt"));
    fix();
    EXPECT_EQ(html(), "<base href=\"rec.html\">" + hrefLine("../Text/rec.txt"));
    EXPECT_FALSE(world.exists("C:\\in\\tarnwick.tmp"));
}

TEST_F(RelativeLinks, Where_the_configuration_file_names_the_outputs_all_lie_in_the_input_folder) {
    definition.bCfgNamesOutput = true;
    putHtml(hrefLine("C:\\in\\rec.txt"));
    world.write("C:\\in\\rec.html", hrefLine("C:\\in\\rec.txt"));
    fix();
    EXPECT_EQ(world.read("C:\\in\\rec.html"), hrefLine("rec.txt"));
    EXPECT_EQ(html(), hrefLine("C:\\in\\rec.txt"));
}

TEST_F(RelativeLinks, An_extension_may_lead_into_a_folder) {
    world.write(out + "Html\\rec\\page.html", "<base href=\"C:\\out\\Html\\rec\\page.html\">" +
                                                  hrefLine("C:\\out\\Text\\rec.txt"));
    output(definition, "Html").sExtension = "\\page.html";
    fix();
    EXPECT_EQ(world.read(out + "Html\\rec\\page.html"),
              "<base href=\"rec\\page.html\">" + hrefLine("../../Text/rec.txt"));
}

TEST_F(RelativeLinks, A_second_time_changes_nothing_more) {
    putHtml("<base href=\"C:\\out\\Html\\rec.html\">\n" + hrefLine("C:\\out\\Text\\rec.txt"));
    fix();
    const std::string once = html();
    fix();
    EXPECT_EQ(html(), once);
}

TEST_F(RelativeLinks, A_page_is_rewritten_into_the_temporary_file_and_moved_into_its_place) {
    putHtml(hrefLine("C:\\out\\Text\\rec.txt"));
    RecordingFiles recording(world.files());
    fix(recording);
    EXPECT_EQ(recording.count(FileOperation::CreateNew, "C:\\in\\tarnwick.tmp"), 1);
    EXPECT_EQ(recording.count(FileOperation::MoveOver, "C:\\in\\tarnwick.tmp"), 1);
    EXPECT_EQ(recording.count(FileOperation::CreateNew), 1);
    EXPECT_EQ(recording.count(FileOperation::Create), 0);
    EXPECT_THAT(world.files().listFiles("C:\\in", "").names, IsEmpty());
    EXPECT_THAT(world.files().listFiles(out + "Html", "").names, ElementsAre("rec.html"));
}

TEST_F(RelativeLinks, A_temporary_file_of_an_earlier_call_is_deleted_even_when_there_is_no_page) {
    world.write("C:\\in\\tarnwick.tmp", "half a page");
    world.write(out + "Html\\tarnwick-new.tmp", "half a page");
    world.write(out + "Faq\\tarnwick-new.tmp", "half a page");
    fix();
    EXPECT_FALSE(world.exists("C:\\in\\tarnwick.tmp"));
    EXPECT_FALSE(world.exists(out + "Html\\tarnwick-new.tmp"));
    EXPECT_FALSE(world.exists(out + "Faq\\tarnwick-new.tmp"));
}

TEST_F(RelativeLinks, What_an_earlier_call_left_behind_goes_before_a_page_is_rewritten) {
    putFaq(hrefLine("C:\\out\\Text\\rec.txt"));
    world.write("C:\\in\\Tarnwick.TMP", std::string(1000, 'x'));
    world.write(out + "Faq\\tarnwick-new.tmp", "half a page");
    fix();
    EXPECT_EQ(faq(), hrefLine("../Text/rec.txt"));
    EXPECT_THAT(world.files().listFiles("C:\\in", "").names, IsEmpty());
    EXPECT_THAT(world.files().listFiles(out + "Faq", "").names, ElementsAre("rec_faq.htm"));
}

TEST_F(RelativeLinks, A_hidden_temporary_file_goes_as_well) {
    putHtml(hrefLine("C:\\out\\Text\\rec.txt"));
    world.write("C:\\in\\tarnwick.tmp", std::string(1000, 'x'));
    world.hide("C:\\in\\tarnwick.tmp");
    RecordingFiles recording(world.files());
    fix(recording);
    EXPECT_EQ(recording.count(FileOperation::Remove, "C:\\in\\tarnwick.tmp"), 1);
    EXPECT_EQ(html(), hrefLine("../Text/rec.txt"));
}

TEST_F(RelativeLinks, An_error_is_reported_and_skips_the_rest) {
    putHtml(hrefLine("C:\\out\\Text\\rec.txt"));
    putFaq(hrefLine("C:\\out\\Text\\rec.txt"));
    world.makeReadOnly(out + "Html\\rec.html");
    fix();
    EXPECT_THAT(desktop.messages, ElementsAre(report(ErrorNumber::PathFileAccess, EACCES)));
    EXPECT_EQ(html(), hrefLine("C:\\out\\Text\\rec.txt"));
    EXPECT_EQ(faq(), hrefLine("C:\\out\\Text\\rec.txt"));
    EXPECT_THAT(world.files().listFiles("C:\\in", "").names, IsEmpty());
    EXPECT_THAT(world.files().listFiles(out + "Html", "").names, ElementsAre("rec.html"));
}

TEST_F(RelativeLinks, A_page_that_another_program_has_open_stays_as_it_is) {
    putHtml(hrefLine("C:\\out\\Text\\rec.txt"));
    auto reader = world.files().openForReading(out + "Html\\rec.html");
    fix();
    EXPECT_THAT(desktop.messages, ElementsAre(report(ErrorNumber::PermissionDenied, EAGAIN)));
    EXPECT_EQ(html(), hrefLine("C:\\out\\Text\\rec.txt"));
    EXPECT_THAT(world.files().listFiles("C:\\in", "").names, IsEmpty());
    reader.reset();
    fix();
    EXPECT_EQ(html(), hrefLine("../Text/rec.txt"));
}

TEST_F(RelativeLinks, An_input_folder_that_is_not_there_is_reported) {
    definition.sInputFolder = "C:\\missing";
    putHtml(hrefLine("C:\\out\\Text\\rec.txt"));
    fix();
    EXPECT_THAT(desktop.messages, ElementsAre(report(ErrorNumber::PathNotFound)));
    EXPECT_EQ(html(), hrefLine("C:\\out\\Text\\rec.txt"));
}

TEST_F(RelativeLinks, A_temporary_file_that_cannot_be_deleted_is_reported) {
    putHtml(hrefLine("C:\\out\\Text\\rec.txt"));
    world.write("C:\\in\\tarnwick.tmp", "");
    const auto kept = world.files().openForReading("C:\\in\\tarnwick.tmp");
    fix();
    EXPECT_THAT(desktop.messages, ElementsAre(report(ErrorNumber::PermissionDenied, EAGAIN)));
    EXPECT_EQ(html(), hrefLine("C:\\out\\Text\\rec.txt"));
}

TEST_F(RelativeLinks, From_a_network_share_and_with_accents_and_blanks_in_names) {
    world.makeShare("\\\\srv\\pub");
    output(definition, "Html").sOutputFolder = "\\\\srv\\pub\\caf\xE9 1";
    world.write("\\\\srv\\pub\\caf\xE9 1\\r\xE9 c.html",
                "caf\xE9" + hrefLine("C:\\out\\Text\\r\xE9 c.txt"));
    fix(world.files(), "r\xE9 c.met");
    EXPECT_EQ(world.read("\\\\srv\\pub\\caf\xE9 1\\r\xE9 c.html"),
              "caf\xE9" + hrefLine("../../../../../C:/out/Text/r\xE9 c.txt"));
    EXPECT_THAT(desktop.messages, IsEmpty());
}

// A machine whose C: is a folder of its own file system.
class MachinePaths : public ToolPaths {
  public:
    [[nodiscard]] std::string toolPath(std::string_view path) const override {
        std::string result = "/srv/meta" + std::string(path.substr(2));
        std::ranges::replace(result, '\\', '/');
        return result;
    }
    [[nodiscard]] char separator() const noexcept override { return '/'; }
};

TEST_F(RelativeLinks, Of_links_that_name_this_machines_files_the_same_becomes_as_on_Windows) {
    const auto page = [](const ToolPaths& paths) {
        return "<p>a/b</p>\r\n<base href=\"" + paths.toolPath(R"(C:\out\Html\rec.html)") +
               "\">\r\n" + hrefLine(paths.toolPath(R"(C:\out\Faq\rec_faq.htm)")) +
               hrefLine(paths.toolPath(R"(C:\out\Text\rec.txt)")) + hrefLine("http://a/b.html");
    };
    putHtml(page(WindowsToolPaths()));
    fix();
    const std::string onWindows = html();
    EXPECT_EQ(onWindows, "<p>a/b</p>\r\n<base href=\"rec.html\">\r\n" +
                             hrefLine("../Faq/rec_faq.htm") + hrefLine("../Text/rec.txt") +
                             hrefLine("http://a/b.html"));
    putHtml(page(MachinePaths()));
    static_cast<void>(rewriteRecordLinks(definition, world.files(), folders, MachinePaths(),
                                         "rec.met", "C:\\in\\x"));
    EXPECT_EQ(html(), onWindows);
}

TEST_F(RelativeLinks, A_product_of_an_impossible_name_hinders_no_other_link) {
    output(definition, "Xml").sExtension = ".x|?";
    putHtml(hrefLine("C:\\out\\Xml\\rec.x|?") + hrefLine("C:\\out\\Text\\rec.txt"));
    fix();
    EXPECT_EQ(html(), hrefLine("../Xml/rec.x|?") + hrefLine("../Text/rec.txt"));
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(RelativeLinks, Links_by_the_paths_of_another_machine_stay) {
    const std::string page = hrefLine(R"(C:\out\Text\rec.txt)");
    putHtml(page);
    static_cast<void>(rewriteRecordLinks(definition, world.files(), folders, MachinePaths(),
                                         "rec.met", "C:\\in\\x"));
    EXPECT_EQ(html(), page);
}

TEST_F(RelativeLinks, What_became_of_the_pages_is_told_and_nothing_is_left_of_the_way_there) {
    putFaq(hrefLine("C:\\out\\Text\\rec.txt"));
    EXPECT_EQ(rewriteRecordLinks(definition, world.files(), folders, WindowsToolPaths(), "rec.met",
                                 "C:\\in\\slot 2"),
              (RewrittenPages{.html = false, .faq = true}));
    putHtml(hrefLine("C:\\out\\Text\\rec.txt"));
    EXPECT_EQ(rewriteRecordLinks(definition, world.files(), folders, WindowsToolPaths(), "rec.met",
                                 "C:\\in\\slot 2"),
              (RewrittenPages{.html = true, .faq = true}));
    EXPECT_THAT(world.files().listFiles("C:\\in", "").names, IsEmpty());
}

TEST_F(RelativeLinks, The_file_of_another_name_is_left_alone_and_one_of_this_name_is_cleared_away) {
    putHtml(hrefLine("C:\\out\\Text\\rec.txt"));
    world.write("C:\\in\\slot 1.tmp", "of another slot");
    world.write("C:\\in\\slot 2.tmp", "of an earlier call");
    static_cast<void>(rewriteRecordLinks(definition, world.files(), folders, WindowsToolPaths(),
                                         "rec.met", "C:\\in\\slot 2"));
    EXPECT_THAT(world.files().listFiles("C:\\in", "").names, ElementsAre("slot 1.tmp"));
    EXPECT_EQ(html(), hrefLine("../Text/rec.txt"));
}

TEST_F(RelativeLinks, An_error_is_raised_to_whoever_rewrites_without_a_desktop) {
    putHtml(hrefLine("C:\\out\\Text\\rec.txt"));
    FaultyFiles faulty(world.files());
    faulty.failAt(FileOperation::Read, 1, RunTimeError(ErrorNumber::DeviceIO));
    EXPECT_THROW(static_cast<void>(rewriteRecordLinks(definition, faulty, folders,
                                                      WindowsToolPaths(), "rec.met", "C:\\in\\x")),
                 RunTimeError);
    EXPECT_EQ(html(), hrefLine("C:\\out\\Text\\rec.txt"));
    EXPECT_THAT(desktop.messages, IsEmpty());
}

} // namespace
} // namespace tarnwick
