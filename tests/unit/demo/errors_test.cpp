#include "tool_test.hpp"

#include <algorithm>

namespace demo {
namespace {

class Errors : public ToolTest {
  protected:
    // The error report of a record, without its heading.
    std::string reportOf(const std::string& record, const std::string& language = "en") {
        write("a.met", record);
        EXPECT_EQ(mp({"-l", language, "-e", path("a.err"), path("a.met")}), 0);
        EXPECT_EQ(errors(), "");
        const auto report = read("a.err");
        return report.substr(report.find('\n') + 1);
    }
    // The small record with one text replaced by another.
    static std::string with(std::string_view old, std::string_view changed) {
        std::string record(smallRecord);
        return record.replace(record.find(old), old.size(), changed);
    }
    void expectOneError(const std::string& record, const std::string& sentence) {
        EXPECT_EQ(reportOf(record), sentence + "\r\nErrors: 1. Warnings: 0.\r\n");
    }
};

TEST_F(Errors, A_sound_record_has_none_in_whatever_way_its_lines_end) {
    constexpr std::string_view none = "Errors: 0. Warnings: 0.\r\n";
    EXPECT_EQ(reportOf(std::string(smallRecord)), none);
    EXPECT_EQ(reportOf(crlf(smallRecord)), none);
    auto carriageReturns = std::string(smallRecord);
    std::ranges::replace(carriageReturns, '\n', '\r');
    EXPECT_EQ(reportOf(carriageReturns), none);
}

TEST_F(Errors, Each_kind_is_told_with_its_line) {
    expectOneError(with("  Extent:", "  Colour: red\n    Shade: 4\n  Extent:"),
                   R"(Line 11: error: unknown element "Colour")");
    expectOneError(with("Title: Ponds & \"pools\"", "Title:"),
                   R"(Line 3: error: "Title" has no text)");
    expectOneError(with("    Title: Ponds & \"pools\"\n", ""),
                   R"(Line 2: error: "Title" is missing under "Citation")");
    expectOneError(with("Metadata:\n  Metadata_Date: 20200301\n", ""),
                   R"(Record: error: "Metadata" is missing)");
    expectOneError(with("    Originator", "    Title: Again\n    Originator"),
                   R"(Line 4: error: "Title" is given again; it stands on line 3 already)");
    expectOneError(with("  Extent:", "  Extent: here"),
                   R"(Line 11: error: "Extent" takes no text of its own)");
    expectOneError(with("  Extent:", "  a heap of\n  words\n  Extent:"),
                   R"(Line 11: error: text outside of an element)");
    expectOneError(with("Metadata:\n  Metadata_Date", "  Metadata:\n    Metadata_Date"),
                   R"(Line 16: error: "Metadata" belongs at the top level)");
    expectOneError(std::string(smallRecord) + "  Theme: ponds\n",
                   R"(Line 18: error: "Theme" belongs under "Keywords")");
}

TEST_F(Errors, A_coordinate_is_a_number_within_its_range) {
    expectOneError(with("-3.5", "west"), R"(Line 12: error: "West" must be a number, not "west")");
    expectOneError(with("-3.5", "nan"), R"(Line 12: error: "West" must be a number, not "nan")");
    expectOneError(with("-3.5", "3\xB0W"),
                   "Line 12: error: \"West\" must be a number, not \"3\xB0W\"");
    expectOneError(with("-3.5", std::string(50, '7') + "x"),
                   R"(Line 12: error: "West" must be a number, not ")" + std::string(40, '7') +
                       "...\"");
    expectOneError(with("-3.5", "-180.5"),
                   R"(Line 12: error: "West" must lie between -180 and 180)");
    expectOneError(with("54.5", "90.1"), R"(Line 15: error: "North" must lie between -90 and 90)");
    EXPECT_EQ(reportOf(with("-3.5", "-180")), "Errors: 0. Warnings: 0.\r\n");
    EXPECT_EQ(reportOf(with("54.5", "90")), "Errors: 0. Warnings: 0.\r\n");
}

TEST_F(Errors, West_is_less_than_East_and_South_less_than_North) {
    expectOneError(with("-3.5", "-2"), R"(Line 12: error: "West" must be less than "East")");
    expectOneError(with("54\n", "54.75\n"), R"(Line 14: error: "South" must be less than "North")");
}

TEST_F(Errors, A_date_is_a_day_of_the_calendar_in_eight_digits) {
    for (const std::string bad : {"20190229", "20200230", "20201301", "20200001", "20200100",
                                  "2020-1-1", "202001", "000000001", "00000101", "today"}) {
        expectOneError(with("20200229", bad), "Line 5: error: \"Publication_Date\" must be a date "
                                              "of the form YYYYMMDD, not \"" +
                                                  bad + "\"");
    }
}

TEST_F(Errors, A_period_does_not_end_before_it_begins) {
    const std::string begin = "  Time_Period:\n    Begin_Date: 20200102\n    End_Date: ";
    expectOneError(with("  Extent:", begin + "20200101\n  Extent:"),
                   R"(Line 12: error: "Begin_Date" must not be later than "End_Date")");
    EXPECT_EQ(reportOf(with("  Extent:", begin + "20200102\n  Extent:")),
              "Errors: 0. Warnings: 0.\r\n");
}

TEST_F(Errors, A_long_line_is_a_warning) {
    EXPECT_EQ(reportOf(with("Pond Office", std::string(984, 'x'))), "Errors: 0. Warnings: 0.\r\n");
    EXPECT_EQ(reportOf(with("Pond Office", std::string(985, 'x'))),
              "Line 4: warning: the line is longer than 1000 characters\r\n"
              "Errors: 0. Warnings: 1.\r\n");
}

TEST_F(Errors, They_come_in_the_order_of_the_lines_and_those_of_the_record_last) {
    EXPECT_EQ(reportOf("Identification: a\n  Citation:\n  Extent:\nTitle: b\n", "fr"),
              "Ligne 1 : erreur : \"Identification\" n'admet pas de texte\r\n"
              "Ligne 1 : erreur : il manque \"Description\" sous \"Identification\"\r\n"
              "Ligne 2 : erreur : il manque \"Title\" sous \"Citation\"\r\n"
              "Ligne 2 : erreur : il manque \"Originator\" sous \"Citation\"\r\n"
              "Ligne 2 : erreur : il manque \"Publication_Date\" sous \"Citation\"\r\n"
              "Ligne 3 : erreur : il manque \"West\" sous \"Extent\"\r\n"
              "Ligne 3 : erreur : il manque \"East\" sous \"Extent\"\r\n"
              "Ligne 3 : erreur : il manque \"South\" sous \"Extent\"\r\n"
              "Ligne 3 : erreur : il manque \"North\" sous \"Extent\"\r\n"
              "Ligne 4 : erreur : \"Title\" doit se trouver sous \"Citation\"\r\n"
              "Fiche : erreur : il manque \"Metadata\"\r\n"
              "Erreurs : 11. Avertissements : 0.\r\n");
}

TEST_F(Errors, A_list_beyond_a_thousand_is_cut_and_the_count_is_not) {
    std::string record;
    for (int i = 0; i < 1500; ++i) {
        record += "Colour: red\n";
    }
    const auto report = reportOf(record);
    EXPECT_EQ(std::ranges::count(report, '\n'), 1002);
    EXPECT_TRUE(report.ends_with("Line 1000: error: unknown element \"Colour\"\r\n"
                                 "Only the first 1000 are listed.\r\n"
                                 "Errors: 1502. Warnings: 0.\r\n"));
}

} // namespace
} // namespace demo
