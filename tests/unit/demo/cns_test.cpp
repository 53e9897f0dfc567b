#include "tool_test.hpp"

namespace demo {
namespace {

class Cns : public ToolTest {
  protected:
    // Repairs `record` into a.cns, a.info and a.lft.
    void repair(const std::string& record, const std::vector<std::string>& more = {}) {
        write("a.met", record);
        std::vector<std::string> arguments{"-l", "en",          "-v", "-i",         path("a.info"),
                                           "-e", path("a.lft"), "-o", path("a.cns")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        arguments.push_back(path("a.met"));
        EXPECT_EQ(cns(arguments), 0);
        EXPECT_EQ(errors(), "");
    }
    [[nodiscard]] std::string info() const { return withoutHeading(read("a.info")); }
    [[nodiscard]] std::string leftovers() const { return withoutHeading(read("a.lft")); }

  private:
    static std::string withoutHeading(const std::string& content) {
        return content.substr(content.find('\n') + 1);
    }
};

TEST_F(Cns, A_record_in_good_form_stays_as_it_is) {
    repair(std::string(smallRecord));
    EXPECT_EQ(read("a.cns"), crlf(smallRecord));
    EXPECT_EQ(read("a.info"), "Repairs made to \"" + path("a.met") +
                                  "\"\r\nElements: 14. Repairs: 0. Lines left over: 0.\r\n");
    EXPECT_EQ(read("a.lft"),
              "Lines of \"" + path("a.met") + "\" that have no place\r\nLines left over: 0.\r\n");
}

TEST_F(Cns, Indentation_names_and_missing_groups_are_repaired) {
    repair("      Identification:\r\n"
           " publication date:  20200229\r\n"
           "\tTITLE: Ponds\r\n"
           "East: 3\r\n"
           "    West: 2\r\n");
    EXPECT_EQ(read("a.cns"), crlf("Identification:\n"
                                  "  Citation:\n"
                                  "    Title: Ponds\n"
                                  "    Publication_Date: 20200229\n"
                                  "  Extent:\n"
                                  "    West: 2\n"
                                  "    East: 3\n"));
    EXPECT_EQ(info(), crlf("Line 1: \"Identification\" indented by 0 blanks instead of 6\n"
                           "Line 2: \"Publication_Date\" indented by 4 blanks instead of 1\n"
                           "Line 2: \"publication date\" written as \"Publication_Date\"\n"
                           "Line 3: \"Title\" indented by 4 blanks instead of 8\n"
                           "Line 3: \"TITLE\" written as \"Title\"\n"
                           "Line 3: \"Citation\" supplied above \"Title\"\n"
                           "Line 4: \"East\" indented by 4 blanks instead of 0\n"
                           "Line 5: \"Extent\" supplied above \"West\"\n"
                           "Elements: 5. Repairs: 8. Lines left over: 0.\n"));
}

TEST_F(Cns, A_group_that_stands_twice_becomes_one_and_repeated_elements_keep_their_order) {
    repair("Identification:\n  Keywords:\n    Theme: b\nMetadata:\nIdentification:\n  Keywords:\n"
           "    Place: c\n    Theme: a\n");
    EXPECT_EQ(read("a.cns"), crlf("Identification:\n  Keywords:\n    Theme: b\n    Theme: a\n"
                                  "    Place: c\nMetadata:\n"));
}

TEST_F(Cns, Text_follows_its_element_with_its_empty_lines) {
    repair("Abstract: First.\n\n\nNot indented: https://a.example/x\n\n  Note: deeper\n\n"
           "Purpose:\nat 10:30\n");
    EXPECT_EQ(read("a.cns"), crlf("Identification:\n"
                                  "  Description:\n"
                                  "    Abstract:\n"
                                  "      First.\n\n\n"
                                  "      Not indented: https://a.example/x\n\n"
                                  "      Note: deeper\n"
                                  "    Purpose: at 10:30\n"));
    EXPECT_EQ(leftovers(), "Lines left over: 0.\r\n");
}

TEST_F(Cns, What_has_no_place_is_left_over) {
    repair("From an old sheet\n  Title: Ponds\n  Colour: red\n    and blue\n"
           "Keywords: see below\n  Theme: ponds\n");
    EXPECT_EQ(read("a.cns"), crlf("Identification:\n  Citation:\n    Title: Ponds\n  Keywords:\n"
                                  "    Theme: ponds\n"));
    EXPECT_EQ(leftovers(), crlf("Line 1: From an old sheet\n"
                                "Line 3:   Colour: red\n"
                                "Line 4:     and blue\n"
                                "Line 5: see below\n"
                                "Lines left over: 4.\n"));
    EXPECT_EQ(info(), crlf("Line 1: left over\n"
                           "Line 2: \"Title\" indented by 4 blanks instead of 2\n"
                           "Line 2: \"Citation\" supplied above \"Title\"\n"
                           "Line 2: \"Identification\" supplied above \"Citation\"\n"
                           "Line 3: left over\n"
                           "Line 4: left over\n"
                           "Line 5: \"Keywords\" indented by 2 blanks instead of 0\n"
                           "Line 5: left over\n"
                           "Line 6: \"Theme\" indented by 4 blanks instead of 2\n"
                           "Elements: 3. Repairs: 9. Lines left over: 4.\n"));
}

TEST_F(Cns, An_alias_becomes_its_element) {
    write("aliases.txt", "# ours\r\n\r\n Pub Year = publication_date \nName=Title\n");
    repair("Identification:\n  Citation:\n    name: Ponds\n    PUB-YEAR: 20200229\n",
           {"-a", path("aliases.txt")});
    EXPECT_EQ(read("a.cns"), crlf("Identification:\n  Citation:\n    Title: Ponds\n"
                                  "    Publication_Date: 20200229\n"));
    EXPECT_EQ(info(), crlf("Line 3: alias \"name\" replaced by \"Title\"\n"
                           "Line 4: alias \"PUB-YEAR\" replaced by \"Publication_Date\"\n"
                           "Elements: 4. Repairs: 2. Lines left over: 0.\n"));
}

TEST_F(Cns, Without_an_aliases_file_an_alias_is_left_over) {
    repair("Name: Ponds\n");
    EXPECT_EQ(read("a.cns"), "");
    EXPECT_EQ(leftovers(), "Line 1: Name: Ponds\r\nLines left over: 1.\r\n");
}

TEST_F(Cns, A_bad_aliases_file_ends_it_with_status_2_and_writes_nothing) {
    write("a.met", std::string(smallRecord));
    for (const std::string bad : {"Name", "Name =", "= Title", "Name = Colour"}) {
        write("aliases.txt", "A = Title\n" + bad + "\n");
        EXPECT_EQ(cns({"-l", "en", "-a", path("aliases.txt"), "-o", path("a.cns"), path("a.met")}),
                  2);
        EXPECT_EQ(errors(), "cns: \"" + path("aliases.txt") +
                                "\", line 2: this gives no known element an alias\n");
    }
    EXPECT_EQ(cns({"-l", "en", "-a", path("none.txt"), "-o", path("a.cns"), path("a.met")}), 2);
    EXPECT_EQ(errors(), "cns: cannot read \"" + path("none.txt") + "\"\n");
    EXPECT_FALSE(exists("a.cns"));
}

TEST_F(Cns, Without_v_the_info_file_holds_the_counts_only) {
    write("a.met", "Title: a\n");
    EXPECT_EQ(cns({"-l", "es", "-i", path("a.info"), "-o", path("a.cns"), path("a.met")}), 0);
    EXPECT_EQ(read("a.info"), "Reparaciones hechas en \"" + path("a.met") +
                                  "\"\r\nElementos: 1. Reparaciones: 3. "
                                  "L\xEDneas sobrantes: 0.\r\n");
    EXPECT_EQ(out(), "");
}

TEST_F(Cns, Without_an_info_file_v_tells_the_repairs_on_the_standard_output) {
    write("a.met", "  Metadata:\n");
    EXPECT_EQ(cns({"-l", "en", "-v", "-o", path("a.cns"), path("a.met")}), 0);
    EXPECT_EQ(out(), "Repairs made to \"" + path("a.met") +
                         "\"\r\nLine 1: \"Metadata\" indented by 0 blanks instead of 2\r\n"
                         "Elements: 1. Repairs: 1. Lines left over: 0.\r\n");
}

TEST_F(Cns, What_it_wrote_it_would_write_again) {
    repair("Abstract: a: b\n c\n\n  Note: d\nTitle: x\n");
    const auto once = read("a.cns");
    repair(once);
    EXPECT_EQ(read("a.cns"), once);
    EXPECT_EQ(info(), "Elements: 5. Repairs: 0. Lines left over: 0.\r\n");
}

} // namespace
} // namespace demo
