#include "contract/contract_fixture.hpp"
#include "support/eventually.hpp"

namespace tarnwick {
namespace {

class ProcessContract : public ContractTest {};

TEST_F(ProcessContract, A_variable_has_its_value_and_one_that_is_not_set_is_empty) {
    platform->setVariable("TARNWICK_TEST_VARIABLE", "C:\\caf\xE9 folder=1");
    EXPECT_EQ(platform->process().environmentVariable("TARNWICK_TEST_VARIABLE"),
              "C:\\caf\xE9 folder=1");
    EXPECT_EQ(platform->process().environmentVariable("TARNWICK_TEST_NO_VARIABLE"), "");
    const std::string large(20000, 'x');
    platform->setVariable("TARNWICK_TEST_VARIABLE", large);
    EXPECT_EQ(platform->process().environmentVariable("TARNWICK_TEST_VARIABLE"), large);
}

class Interpreter : public ContractTest {
  protected:
    [[nodiscard]] bool appears(std::string_view name) const {
        return eventually([&] { return exists(name); });
    }

    CommandInterpreter& interpreter = platform->interpreter();
};

TEST_F(Interpreter, A_batch_file_is_started_and_not_waited_for) {
    put("a batch & more.bat", platform->batchThatWaits(in("signal"), in("marker")));
    interpreter.startHidden(in("a batch & more.bat"));
    EXPECT_FALSE(exists("marker")); // it cannot have ended: it waits for us
    put("signal");
    EXPECT_TRUE(appears("marker"));
}

TEST_F(Interpreter, A_started_batch_tells_when_it_has_ended) {
    put("a.bat", platform->batchThatWaits(in("signal"), in("marker")));
    const auto batch = interpreter.startHidden(in("a.bat"));
    EXPECT_FALSE(batch->hasEnded());
    put("signal");
    EXPECT_TRUE(appears("marker"));
    EXPECT_TRUE(eventually([&] { return batch->hasEnded(); }));
    EXPECT_TRUE(batch->hasEnded()); // and goes on saying so
}

TEST_F(Interpreter, A_batch_file_with_bytes_above_127_in_its_name_is_started) {
    put("caf\xE9.bat", platform->batchThatWaits(in("signal"), in("marker")));
    put("signal");
    interpreter.startHidden(in("caf\xE9.bat"));
    EXPECT_TRUE(appears("marker"));
}

TEST_F(Interpreter, A_batch_file_that_is_not_there_raises_53) {
    EXPECT_EQ(raisedBy([&] { interpreter.startHidden(in("missing.bat")); }), 53);
    EXPECT_EQ(raisedBy([&] { interpreter.startHidden(platform->scratch()); }), 53);
}

TEST_F(Interpreter, Batch_text_of_plain_ASCII_is_the_same) {
    std::string ascii;
    for (int code = 1; code < 128; ++code) {
        ascii.append(1, static_cast<char>(code));
    }
    EXPECT_EQ(interpreter.batchText(ascii), ascii);
    EXPECT_EQ(interpreter.batchText(""), "");
}

TEST_F(Interpreter, Batch_text_is_in_the_code_page_of_the_interpreter) {
    EXPECT_EQ(interpreter.batchText("caf\xE9 \xDC"), "caf\x82 \x9A");
    EXPECT_EQ(interpreter.batchText("\xE4\xF6\xFC\xDF\xF1\xB5\xB0"),
              "\x84\x94\x81\xE1\xA4\xE6\xF8");
}

TEST_F(Interpreter, Text_with_a_character_that_has_no_place_there_gives_nothing) {
    for (const std::string_view text :
         {"\xC0 la carte", "price \x80", "\x97", "\xA9", "\xD8re", "\xBE", "\x81"}) {
        EXPECT_EQ(interpreter.batchText(text), "") << text;
    }
}

TEST_F(Interpreter, The_system_code_page_has_its_line) {
    EXPECT_EQ(interpreter.systemCodePageLine(), R"(@"%SystemRoot%\System32\chcp.com" 1252 > nul)");
}

} // namespace
} // namespace tarnwick
