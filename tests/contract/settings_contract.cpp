#include "contract/contract_fixture.hpp"

namespace tarnwick {
namespace {

class Settings : public ContractTest {
  protected:
    [[nodiscard]] std::string read(std::string_view key) const {
        return store.read(application, "SECTION", key, "fallback");
    }
    void write(std::string_view key, std::string_view value) {
        store.write(application, "SECTION", key, value);
    }

    SettingsStore& store = platform->settings();
    std::string application = platform->application();
};

TEST_F(Settings, What_was_never_stored_is_the_fallback) {
    EXPECT_EQ(read("absent"), "fallback");
    EXPECT_EQ(store.read(application, "SECTION", "absent", ""), "");
    write("present", "x");
    EXPECT_EQ(read("absent"), "fallback");
    EXPECT_EQ(store.read(application, "OTHER", "present", "fallback"), "fallback");
    EXPECT_EQ(store.read(application + "x", "SECTION", "present", "fallback"), "fallback");
}

TEST_F(Settings, A_stored_value_comes_back_until_another_replaces_it) {
    write("INI File Name", R"(C:\My Files\a=b.ini)");
    EXPECT_EQ(read("INI File Name"), R"(C:\My Files\a=b.ini)");
    write("INI File Name", "short");
    EXPECT_EQ(read("INI File Name"), "short");
}

TEST_F(Settings, An_empty_value_is_a_value) {
    write("key", "something");
    write("key", "");
    EXPECT_EQ(read("key"), "");
}

TEST_F(Settings, Names_match_without_regard_to_case) {
    write("MP Executable", "mp.exe");
    EXPECT_EQ(read("mp executable"), "mp.exe");
    write("MP EXECUTABLE", "other.exe");
    EXPECT_EQ(read("MP Executable"), "other.exe");
    EXPECT_EQ(store.read(application, "section", "MP Executable", ""), "other.exe");
}

TEST_F(Settings, Values_are_kept_byte_for_byte) {
    std::string value;
    for (int code = 1; code < 256; ++code) {
        value.append(1, static_cast<char>(code));
    }
    value += " %41 =\\\r\n end ";
    write("key", value);
    EXPECT_EQ(read("key"), value);
    const std::string large(20000, '\xE9');
    write("key", large);
    EXPECT_EQ(read("key"), large);
}

TEST_F(Settings, Settings_do_not_disturb_each_other) {
    write("a", "1");
    write("a=b", "2");
    write("caf\xE9", "3");
    store.write(application, "SECTION2", "a", "4");
    EXPECT_EQ(read("a"), "1");
    EXPECT_EQ(read("a=b"), "2");
    EXPECT_EQ(read("CAF\xC9"), "3");
    EXPECT_EQ(store.read(application, "SECTION2", "a", ""), "4");
}

} // namespace
} // namespace tarnwick
