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
