#include "tool_test.hpp"

#include <algorithm>

namespace demo {
namespace {

class Outputs : public ToolTest {
  protected:
    // What mp writes for `option`, and nothing else with it.
    std::string outputFor(const std::string& option, std::string_view record = smallRecord,
                          const std::vector<std::string>& more = {}) {
        write("a.met", std::string(record));
        std::vector<std::string> arguments{"-l", "en", option, path("a.out")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        arguments.push_back(path("a.met"));
        EXPECT_EQ(mp(arguments), 0);
        EXPECT_EQ(errors(), "");
        return read("a.out");
    }
};

TEST_F(Outputs, Text_is_the_record_itself) {
    EXPECT_EQ(outputFor("-t"), crlf(smallRecord));
}

TEST_F(Outputs, Xml_has_an_element_for_each_of_the_record) {
    EXPECT_EQ(outputFor("-x"), crlf(R"(<?xml version="1.0" encoding="windows-1252"?>
<record>
  <Identification>
    <Citation>
      <Title>Ponds &amp; &quot;pools&quot;</Title>
      <Originator>Pond Office</Originator>
      <Publication_Date>20200229</Publication_Date>
    </Citation>
    <Description>
      <Abstract>Ponds &lt;1 ha.

Group: none</Abstract>
    </Description>
    <Extent>
      <West>-3.5</West>
      <East>-2</East>
      <South>54</South>
      <North>54.5</North>
    </Extent>
  </Identification>
  <Metadata>
    <Metadata_Date>20200301</Metadata_Date>
  </Metadata>
</record>
)"));
}

TEST_F(Outputs, Sgml_is_the_same_behind_a_document_type) {
    const auto xml = outputFor("-x");
    EXPECT_EQ(outputFor("-s"), "<!doctype record>" + xml.substr(xml.find("\r\n")));
}

TEST_F(Outputs, Dif_has_fields_in_groups_and_longer_text_behind_a_blank) {
    EXPECT_EQ(outputFor("-d"), crlf(R"(Group: Identification
Group: Citation
Title: Ponds & "pools"
Originator: Pond Office
Publication_Date: 20200229
End_Group
Group: Description
Abstract: Ponds <1 ha.
 
 Group: none
End_Group
Group: Extent
West: -3.5
East: -2
South: 54
North: 54.5
End_Group
End_Group
Group: Metadata
Metadata_Date: 20200301
End_Group
)"));
}

TEST_F(Outputs, Html_shows_the_record_in_nested_lists) {
    EXPECT_EQ(outputFor("-h"), crlf(R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="windows-1252">
<base href=")" + path("a.out") + R"(">
<title>Ponds &amp; &quot;pools&quot;</title>
</head>
<body>
<h1>Ponds &amp; &quot;pools&quot;</h1>
<dl>
<dt>Identification</dt>
<dd>
<dl>
<dt>Citation</dt>
<dd>
<dl>
<dt>Title</dt>
<dd>Ponds &amp; &quot;pools&quot;</dd>
<dt>Originator</dt>
<dd>Pond Office</dd>
<dt>Publication_Date</dt>
<dd>20200229</dd>
</dl>
</dd>
<dt>Description</dt>
<dd>
<dl>
<dt>Abstract</dt>
<dd>Ponds &lt;1 ha.
<br>
Group: none</dd>
</dl>
</dd>
<dt>Extent</dt>
<dd>
<dl>
<dt>West</dt>
<dd>-3.5</dd>
<dt>East</dt>
<dd>-2</dd>
<dt>South</dt>
<dd>54</dd>
<dt>North</dt>
<dd>54.5</dd>
</dl>
</dd>
</dl>
</dd>
<dt>Metadata</dt>
<dd>
<dl>
<dt>Metadata_Date</dt>
<dd>20200301</dd>
</dl>
</dd>
</dl>
</body>
</html>
)"));
}

TEST_F(Outputs, Faq_asks_what_the_record_answers) {
    EXPECT_EQ(outputFor("-f"), crlf(R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="windows-1252">
<base href=")" + path("a.out") + R"(">
<title>Ponds &amp; &quot;pools&quot; - Questions and answers</title>
</head>
<body>
<h1>Ponds &amp; &quot;pools&quot; - Questions and answers</h1>
<h2>What does this data set describe?</h2>
<dl>
<dt>Title</dt>
<dd>Ponds &amp; &quot;pools&quot;</dd>
<dt>Abstract</dt>
<dd>Ponds &lt;1 ha.
<br>
Group: none</dd>
</dl>
<h2>Who made it?</h2>
<dl>
<dt>Originator</dt>
<dd>Pond Office</dd>
</dl>
<h2>Which time does it stand for?</h2>
<dl>
<dt>Publication_Date</dt>
<dd>20200229</dd>
</dl>
<h2>Which area does it cover?</h2>
<dl>
<dt>West</dt>
<dd>-3.5</dd>
<dt>East</dt>
<dd>-2</dd>
<dt>South</dt>
<dd>54</dd>
<dt>North</dt>
<dd>54.5</dd>
</dl>
<h2>Who wrote this record, and when?</h2>
<dl>
<dt>Metadata_Date</dt>
<dd>20200301</dd>
</dl>
</body>
</html>
)"));
}

TEST_F(Outputs, A_page_speaks_the_language_asked_for) {
    write("a.met", "");
    EXPECT_EQ(mp({"-l", "ca", "-f", path("a.faq"), "-t", path("a.txt"), path("a.met")}), 0);
    EXPECT_EQ(read("a.faq"), crlf(R"(<!DOCTYPE html>
<html lang="ca">
<head>
<meta charset="windows-1252">
<base href=")" + path("a.faq") + "\">\n<title>Registre sense t\xEDtol - Preguntes i respostes" +
                                  R"(</title>
</head>
<body>
<h1>Registre sense t)" + "\xEDtol" +
                                  R"( - Preguntes i respostes</h1>
<p>El mateix registre com a</p>
<ul>
<li><A HREF=")" + path("a.txt") + R"(">Text</A></li>
</ul>
</body>
</html>
)"));
}

TEST_F(Outputs, The_pages_name_each_other_output_of_the_run_once_and_never_the_error_report) {
    write("a.met", std::string(smallRecord));
    const auto html = path("h/r & s.html");
    const auto faq = path("f/r & s_faq.htm");
    std::filesystem::create_directories(path("h"));
    std::filesystem::create_directories(path("f"));
    EXPECT_EQ(mp({"-l", "en", "-e", path("r.err"), "-t", path("r.txt"), "-h", html, "-f", faq, "-s",
                  path("r.sgml"), "-x", path("r.xml"), "-d", path("r.dif"), path("a.met")}),
              0);
    const auto link = [](const std::string& target, const std::string& caption) {
        return "<li><A HREF=\"" + target + "\">" + caption + "</A></li>\r\n";
    };
    const auto others = link(path("r.txt"), "Text") + link(path("r.sgml"), "SGML") +
                        link(path("r.xml"), "XML") + link(path("r.dif"), "DIF") + "</ul>\r\n";
    const auto htmlPage = read("h/r & s.html");
    EXPECT_NE(htmlPage.find("<ul>\r\n" + link(faq, "FAQ") + others), std::string::npos);
    EXPECT_NE(htmlPage.find("\r\n<base href=\"" + html + "\">\r\n"), std::string::npos);
    const auto faqPage = read("f/r & s_faq.htm");
    EXPECT_NE(faqPage.find("<ul>\r\n" + link(html, "HTML") + others), std::string::npos);
    EXPECT_NE(faqPage.find("\r\n<base href=\"" + faq + "\">\r\n"), std::string::npos);
    for (const auto& page : {htmlPage, faqPage}) {
        EXPECT_EQ(page.find("r.err"), std::string::npos);
        EXPECT_EQ(page.find("HREF=\"" + path("r.xml")), page.rfind("HREF=\"" + path("r.xml")));
    }
}

TEST_F(Outputs, No_text_of_a_record_passes_for_a_link_or_a_tag) {
    const std::string record = "Identification:\n  Citation:\n    Title:\n      <base href=\"x\">\n"
                               "      HREF=\"x\"\n";
    EXPECT_NE(outputFor("-h", record)
                  .find("<dd>&lt;base href=&quot;x&quot;&gt;\r\n"
                        "HREF=&quot;x&quot;</dd>\r\n"),
              std::string::npos);
}

TEST_F(Outputs, Bytes_that_are_no_character_become_question_marks_in_mark_up_and_others_stay) {
    const std::string record = "Identification:\n  Citation:\n    Title: \x01"
                               "a\x81\x7F\xE9\x80\n";
    EXPECT_NE(outputFor("-x", record).find("<Title>?a??\xE9\x80</Title>"), std::string::npos);
    EXPECT_EQ(outputFor("-t", record), crlf(record));
}

TEST_F(Outputs, Fixdoc_cleans_the_text_output_and_no_other) {
    const std::string record = "Identification:\n  Description:\n    Abstract:\n      a  \n\n\n"
                               "      b  c   \n";
    EXPECT_EQ(outputFor("-t", record), crlf(record));
    EXPECT_EQ(outputFor("-t", record, {"-fixdoc"}),
              crlf("Identification:\n  Description:\n    Abstract:\n      a\n\n      b  c\n"));
    EXPECT_EQ(outputFor("-x", record, {"-fixdoc"}), outputFor("-x", record));
    EXPECT_EQ(outputFor("-d", record, {"-fixdoc"}), outputFor("-d", record));
}

TEST_F(Outputs, A_record_with_errors_is_written_all_the_same) {
    EXPECT_EQ(outputFor("-x", "Title: a\nColour: red\n"),
              crlf("<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n<record>\n"
                   "  <Title>a</Title>\n</record>\n"));
}

} // namespace
} // namespace demo
