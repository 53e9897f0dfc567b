#include "report/shapes.hpp"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace tarnwick {
namespace {

void expectShapes(const std::vector<std::pair<std::string, std::string>>& expected) {
    for (const auto& [message, shape] : expected) {
        EXPECT_EQ(shapeOf(message), shape) << message;
        EXPECT_EQ(shapeOf(shape), shape) << message;
    }
}

TEST(ShapesOfMessages, Numbers_are_masked) {
    expectShapes({{"Error (line 12): no date", "Error (line #): no date"},
                  {"Errors: 0. Warnings: 17.", "Errors: #. Warnings: #."},
                  {"between -180 and +180.25", "between # and #"},
                  {"1,234.5 of 2", "# of #"},
                  {"on 2026-11-22 at 02:24:48", "on #-#-# at #:#:#"},
                  {"22/11/2026", "#/#/#"},
                  {"UTF8, ISO-19115", "UTF#, ISO-#"},
                  {"1, 2,3; x=-4", "#, #; x=#"},
                  {"--5 a.-5 1..2 .5", "--# a.# #..# .#"}});
}

TEST(ShapesOfMessages, Quoted_text_is_masked_between_its_marks) {
    expectShapes(
        {{R"(Error (line 3): "Begin Date" is no date)", "Error (line #): \"…\" is no date"},
         {R"("" is empty, "a" is not)", "\"…\" is empty, \"…\" is not"},
         {"'West' must be less than 'East'", "'…' must be less than '…'"},
         {"“Nord” „Süd“ «Est» ‹Ouest› »Ost«", "“…” „…“ «…» ‹…› »…«"},
         {"`mp' and `cns`", "`…' and `…`"},
         {"‘a b’ ‚c d’", "‘…’ ‚…’"},
         {"('x')", "('…')"}});
}

TEST(ShapesOfMessages, An_apostrophe_is_no_quotation_mark) {
    expectShapes({{"l'élément manque dans l'entrée", "l'élément manque dans l'entrée"},
                  {"can't read 'the file' of yesterday's", "can't read '…' of yesterday's"},
                  {"l’option d’été", "l’option d’été"},
                  {"'it's missing' says 'who'", "'…' says '…'"}});
}

TEST(ShapesOfMessages, A_mark_without_another_one_stays_unless_the_message_was_cut) {
    expectShapes({{R"(a 5" disk)", R"(a #" disk)"},
                  {R"(a 5" file x.txt)", "a #\" file …"},
                  {R"(not "a long text that goes on and...)", "not \"…..."},
                  {"«x", "«x"},
                  {"a ” b", "a ” b"}});
}

TEST(ShapesOfMessages, Paths_and_names_of_files_are_masked) {
    expectShapes({{R"(cannot read C:\in\lakes 2.met)", "cannot read … …"},
                  {R"(C:\in\a.met: not found)", "…: not found"},
                  {"/srv/meta/in/a.met:12: bad", "…:#: bad"},
                  {"see http://example.org/a?b=1.", "see …=#."},
                  {"lakes.met, wells.xml (soils.html)!", "…, … (…)!"},
                  {"./a ../b ~/c C:/d a/b.met", "… … … … …"},
                  {R"(\\server\share\x)", "…"},
                  {"5.txt 5.5.html", "… …"}});
}

TEST(ShapesOfMessages, What_only_looks_like_a_path_stays) {
    expectShapes({{"and/or, N/A, km/h", "and/or, N/A, km/h"},
                  {"i.e. e.g. U.S. idinfo.citation", "i.e. e.g. U.S. idinfo.citation"},
                  {"A: b / c \\ d ... .hidden", "A: b / c \\ d ... .hidden"}});
}

TEST(ShapesOfMessages, The_name_of_the_record_is_masked_also_with_blanks_and_with_its_path) {
    const std::vector<std::pair<std::string, std::string>> expected{
        {"cannot read My Record (7).met: gone", "cannot read …: gone"},
        {R"(in C:\My Records\in\My Record (7).met:12)", "in …:#"},
        {R"(in C:/My Records/My Record (7).met!)", "in …!"},
        {R"(see x.txt and \\server\my share\My Record (7).html.)", "see … and …."},
        {"/srv/my records/My Record (7).met, line 3", "…, line #"},
        {"see /srv/a and /srv/my records/My Record (7).met", "see … and …"},
        {"(../old records/My Record (7).met)", "(…)"},
        {"in sub/My Record (7).met", "in …"},
        {"a|b/My Record (7).met", "a|…"},
        {"'My Record (7).met' “My Record (7).met”", "'…' “…”"},
        {"「My Record (7).met」", "「…」"},
        {"My Record (7).cns and My Record (7).met...", "… and …..."},
        {"My Record (7).metre", "…"}};
    for (const auto& [message, shape] : expected) {
        EXPECT_EQ(shapeOf(message, "My Record (7).met"), shape) << message;
        EXPECT_EQ(shapeOf(shape), shape) << message;
    }
    EXPECT_EQ(shapeOf("a b.metadata is bad", "a b.metadata"), "… is bad");
    EXPECT_EQ(shapeOf("a b.c and a b.d", "a b.c"), "… and a b.d");
}

TEST(ShapesOfMessages, What_only_looks_like_the_name_of_the_record_stays) {
    EXPECT_EQ(shapeOf("error in line 1: no error.met", "error.met"), "error in line #: no …");
    EXPECT_EQ(shapeOf("line 1.5 of 1", "1.met"), "line # of #");
    EXPECT_EQ(shapeOf("line 1.5 of 1", "1.5"), "line # of #");
    EXPECT_EQ(shapeOf("error of error", "error"), "error of error");
    EXPECT_EQ(shapeOf("error. Text", "error.met"), "error. Text");
    EXPECT_EQ(shapeOf("my a b.met.old", "a b.met"), shapeOf("my a b.met.old"));
    EXPECT_EQ(shapeOf("my-a b.met", "a b.met"), "my-a …");
    EXPECT_EQ(shapeOf("A B.met", "a b.met"), "A …"); // another file
    EXPECT_EQ(shapeOf("a .met", ".met"), "a .met");
}

TEST(ShapesOfMessages, Digits_of_every_script_are_digits) {
    expectShapes({{"سطر ٧: ٢٠٢٦-١١-٢٢", "سطر #: #-#-#"},
                  {"पंक्ति १२,३४५.६", "पंक्ति #"},
                  {"第３行、-５", "第#行、-#"},
                  {"x ٣,٤; ‘७’ 𝟘𝟡", "x #; ‘…’ #"},
                  {"५'x' 5'x'", "#'…' #'…'"},
                  {"½ ② ⅷ 三", "½ ② ⅷ 三"}}); // numbers, and no digits
    for (const char* const zero : {"٠", "۰", "߀", "०", "০", "੦", "૦", "୦", "௦", "౦",  "೦", "൦",
                                   "෦", "๐", "໐", "༠", "၀", "០", "᠐", "꘠", "꯰", "０", "𐒠", "𞥐"}) {
        EXPECT_EQ(shapeOf(std::string("n ") + zero), "n #") << zero;
    }
}

TEST(ShapesOfMessages, Blanks_are_one_and_none_at_the_ends) {
    expectShapes({{"  a \t b  ", "a b"}, {"", ""}, {" \t", ""}});
}

TEST(ShapesOfMessages, Are_found_in_any_language_and_in_bytes_that_are_no_text) {
    EXPECT_EQ(shapeOf("Línea 3: error: falta \"Título\" dentro de \"Citación\""),
              shapeOf("Línea 71: error: falta \"\xF1\" dentro de \"x\""));
    EXPECT_EQ(shapeOf("Ligne 3 : \xE9l\xE9ment inconnu \"a\""),
              "Ligne # : \xE9l\xE9ment inconnu \"…\"");
    EXPECT_EQ(shapeOf("第3行：「a」"), "第#行：「a」");
    expectShapes(
        {{"\xE2\x93 5", "\xE2\x93 #"}, {std::string("a\0 1", 4), std::string("a\0 #", 4)}});
}

TEST(ShapesOfMessages, What_nearly_every_record_has_is_common) {
    EXPECT_TRUE(isCommon(95, 100));
    EXPECT_FALSE(isCommon(94, 100));
    EXPECT_TRUE(isCommon(5, 5));
    EXPECT_FALSE(isCommon(4, 4)); // too few to tell
    EXPECT_FALSE(isCommon(0, 0));
}

} // namespace
} // namespace tarnwick
