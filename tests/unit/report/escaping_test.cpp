#include "report/escaping.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using namespace std::string_literals;

TEST(ShownText, A_plain_text_stays_as_it_is) {
    EXPECT_EQ(shownText("a plain text, 100 %"), "a plain text, 100 %");
    EXPECT_EQ(shownText("Größe \xE6\xB0\xB4 \xF0\x9F\x8C\x8A"),
              "Größe \xE6\xB0\xB4 \xF0\x9F\x8C\x8A");
    EXPECT_EQ(shownText(""), "");
}

TEST(ShownText, What_acts_on_a_line_is_shown_by_its_number) {
    EXPECT_EQ(shownText("a\0b\x1B[0m\n"s), "a<U+0000>b<U+001B>[0m<U+000A>");
    // In two pieces, for it would turn this line, too.
    EXPECT_EQ(shownText("turned \xE2\x80"s + "\xAE txt"), "turned <U+202E> txt");
}

TEST(ShownText, What_is_no_character_of_UTF_8_is_shown_by_its_number) {
    EXPECT_EQ(shownText("half \xC3"), "half <U+00C3>");
    EXPECT_EQ(shownText("\xED\xA0\x80"), "<U+00ED><U+00A0><U+0080>");
    EXPECT_EQ(shownText("\xEF\xBF\xBE \xEF\xBF\xBF"), "<U+FFFE> <U+FFFF>");
}

TEST(MarkupText, No_text_ends_its_element_or_its_attribute) {
    EXPECT_EQ(markupText("<b> & \"c\" & 'd' ]]>"),
              "&lt;b&gt; &amp; &quot;c&quot; &amp; &#39;d&#39; ]]&gt;");
    EXPECT_EQ(markupText("</script>\x01"), "&lt;/script&gt;&lt;U+0001&gt;");
}

TEST(CsvCell, A_cell_is_quoted_where_it_must_be) {
    EXPECT_EQ(csvCell("plain text"), "plain text");
    EXPECT_EQ(csvCell("a,b"), "\"a,b\"");
    EXPECT_EQ(csvCell("a;b"), "\"a;b\"");
    EXPECT_EQ(csvCell("say \"so\""), "\"say \"\"so\"\"\"");
    EXPECT_EQ(csvCell(" blank"), "\" blank\"");
    EXPECT_EQ(csvCell("blank "), "\"blank \"");
    EXPECT_EQ(csvCell("two\r\nlines"), "two<U+000D><U+000A>lines");
}

TEST(CsvCell, No_cell_is_a_formula) {
    EXPECT_EQ(csvCell("=cmd|' /C calc'!A0"), "'=cmd|' /C calc'!A0");
    EXPECT_EQ(csvCell("+1"), "'+1");
    EXPECT_EQ(csvCell("x;=HYPERLINK(1);y"), "\"x;'=HYPERLINK(1);y\"");
    EXPECT_EQ(csvCell("x, \"=1"), "\"x,' \"\"=1\"");
    EXPECT_EQ(csvCell("\"=1"), "\"'\"\"=1\"");
    EXPECT_EQ(csvCell("-1"), "'-1");
    EXPECT_EQ(csvCell("@SUM(A1)"), "'@SUM(A1)");
    EXPECT_EQ(csvCell("\t=1"), "' =1");
    EXPECT_EQ(csvCell("\r=1"), "'<U+000D>=1");
    EXPECT_EQ(csvCell("  =1,2"), "\"'  =1,2\"");
    for (const std::string wide :
         {"\xEF\xBC\x9D", "\xEF\xBC\x8B", "\xEF\xBC\x8D", "\xEF\xBC\xA0"}) {
        EXPECT_EQ(csvCell(wide + "1"), "'" + wide + "1");
    }
    EXPECT_EQ(csvCell("1=2-3"), "1=2-3");
}

TEST(LinkPart, Only_letters_digits_and_four_signs_stand_for_themselves) {
    EXPECT_EQ(linkPart("aZ09-._~"), "aZ09-._~");
    EXPECT_EQ(linkPart("a b/c?d#e%41:f"), "a%20b%2Fc%3Fd%23e%2541%3Af");
    EXPECT_EQ(linkPart("\xC3\xA9\xFF\0"s), "%C3%A9%FF%00");
}

TEST(FolderLink, A_folder_is_a_place_and_never_a_script) {
    EXPECT_EQ(folderLink("../out%20put/"), "../out%20put/");
    EXPECT_EQ(folderLink("file:///C:/out/"), "file:///C:/out/");
    EXPECT_EQ(folderLink("out/a:b/"), "out/a:b/");
    EXPECT_EQ(folderLink("javascript:alert(1)/"), "./javascript:alert(1)/");
    EXPECT_EQ(folderLink("\x01javascript:alert(1)/"), "./&lt;U+0001&gt;javascript:alert(1)/");
    EXPECT_EQ(folderLink("data:text/html,x/"), "./data:text/html,x/");
    EXPECT_EQ(folderLink(" javascript:alert(1)/"), "./ javascript:alert(1)/");
    EXPECT_EQ(folderLink("FILE:alert/"), "./FILE:alert/");
    EXPECT_EQ(folderLink(""), "");
    EXPECT_EQ(folderLink("a\"b&c/"), "a&quot;b&amp;c/");
}

TEST(FolderLink, A_share_is_a_file_and_never_a_server_of_the_network) {
    EXPECT_EQ(folderLink("//server/share/"), "file://server/share/");
    EXPECT_EQ(folderLink("file://server/share/"), "file://server/share/");
    EXPECT_EQ(folderLink("\\\\server\\share/"), "%5C%5Cserver%5Cshare/");
    EXPECT_EQ(folderLink(" //server/"), "./ //server/");
}

} // namespace
} // namespace tarnwick
