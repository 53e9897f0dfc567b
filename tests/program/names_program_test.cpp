// Records whose names look like something else in the system's code page: each is a record of its
// own, and none a command, another record or another folder.

#include "program/installation.hpp"
#include "program/running_program.hpp"
#include "support/deceiving_names.hpp"
#include "support/eventually.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

namespace tarnwick::test {
namespace {

namespace fs = std::filesystem;

class NamesProgram : public testing::Test {
  protected:
    NamesProgram() { place.write("batch.ini", place.definition()); }

    [[nodiscard]] fs::path in(const wchar_t* folder) const {
        return place.program().parent_path() / folder;
    }
    void putRecord(const fs::path& name, const std::string& title) {
        std::ofstream(in(L"in") / name, std::ios::binary) << record(title);
        titles_.push_back(title);
    }
    [[nodiscard]] bool batchEnds() const {
        return eventually([&] { return place.temporaryFiles() == "MPDELETE.bat"; });
    }
    // How many texts the tools have made of the record of each title.
    [[nodiscard]] std::map<std::string, int> titlesOfOutputs() const {
        std::map<std::string, int> titles;
        for (const auto& entry : fs::directory_iterator(in(L"out"))) {
            if (entry.path().extension() == L".xml") {
                std::ifstream file(entry.path(), std::ios::binary);
                const std::string text{std::istreambuf_iterator<char>(file), {}};
                for (const std::string& title : titles_) {
                    titles[title] += text.contains(title) ? 1 : 0;
                }
            }
        }
        return titles;
    }
    [[nodiscard]] bool anythingNamed(const wchar_t* name) const {
        for (const auto& entry : fs::recursive_directory_iterator(place.program().parent_path())) {
            if (entry.path().filename() == name) {
                return true;
            }
        }
        return false;
    }
    // The program says only that, and has started nothing.
    void expectRefused(const std::wstring& arguments, const std::string& text) const {
        RunningProgram program(place.program(), arguments);
        const HWND message = program.window("Warning");
        EXPECT_EQ(messageOf(message), text);
        press(message, "OK");
        EXPECT_EQ(program.exitCode(), 1U);
        EXPECT_EQ(place.temporaryFiles(), "");
    }

    Installation place;

  private:
    std::vector<std::string> titles_; // of the records
};

TEST_F(NamesProgram, Every_record_with_a_deceiving_name_is_run_over_once_and_as_itself) {
    putRecord(L"a.met", "Plain");
    std::map<std::string, int> expected{{"Plain", 1}};
    char letter = 'A';
    for (const auto& name : deceivingNames) {
        const std::string title = std::string("Deceiving ") + letter++;
        putRecord(name, title);
        expected[title] = 1;
    }
    RunningProgram program(place.program(), L"-I batch.ini");
    EXPECT_EQ(program.exitCode(), 0U);
    ASSERT_TRUE(batchEnds()) << place.temporaryFiles();
    EXPECT_EQ(titlesOfOutputs(), expected);
    EXPECT_FALSE(anythingNamed(L"pwned"));
    EXPECT_FALSE(fs::exists(in(L"w.met")) || fs::exists(in(L"w.xml")));
}

TEST_F(NamesProgram, A_definition_is_named_by_its_short_name) {
    putRecord(L"a.met", "Plain");
    fs::copy_file(in(L"batch.ini"), in(L"\x0416\x0443\x043A stored.ini"));
    RunningProgram program(place.program(),
                           L"-I \"" + in(L"\x0416\x0443\x043A stored.ini").wstring() + L"\"");
    EXPECT_EQ(program.exitCode(), 0U);
    ASSERT_TRUE(batchEnds()) << place.temporaryFiles();
    EXPECT_EQ(titlesOfOutputs()["Plain"], 1);
}

TEST_F(NamesProgram, A_definition_of_any_deceiving_name_is_the_very_file) {
    for (const auto& name : deceivingNames) {
        std::ofstream(in(name.c_str()), std::ios::binary) << "Process MP=0\r\nProcess CNS=0\r\n";
        RunningProgram program(place.program(), L"-I \"" + in(name.c_str()).wstring() + L"\"");
        const HWND message = program.window("Warning");
        // Else it would not exist, or be run.
        EXPECT_TRUE(messageOf(message).ends_with("\" is not setup correctly."))
            << messageOf(message);
        press(message, "OK");
        EXPECT_EQ(program.exitCode(), 1U);
    }
    EXPECT_FALSE(anythingNamed(L"pwned"));
    EXPECT_EQ(place.temporaryFiles(), "");
}

TEST_F(NamesProgram, Extensions_that_look_like_others_find_nothing_in_their_place) {
    putRecord(L"a.met", "Plain");
    expectRefused(
        L"-I batch.ini -e \x0101.met",
        "The file extensions \"<U+0101>.met\" hold characters that the system's code page "
        "does not have.");
}

TEST_F(NamesProgram, A_definition_of_a_deceiving_name_is_not_the_one_it_looks_like) {
    putRecord(L"a.met", "Plain");
    expectRefused(L"-I b\x0101tch.ini",
                  "The INI file \"" + place.path("b<U+0101>tch.ini") + "\" does not exist.");
}

TEST_F(NamesProgram, An_input_folder_in_the_command_line_is_named_by_its_short_name) {
    fs::create_directory(in(L"\x0416\x0443\x043A records"));
    putRecord(in(L"\x0416\x0443\x043A records") / L"b.met", "Beetle");
    putRecord(L"a.met", "Plain");
    RunningProgram program(place.program(), L"-I batch.ini -F \"" +
                                                in(L"\x0416\x0443\x043A records").wstring() +
                                                L"\"");
    EXPECT_EQ(program.exitCode(), 0U);
    ASSERT_TRUE(batchEnds()) << place.temporaryFiles();
    EXPECT_EQ(titlesOfOutputs()["Beetle"], 1);
    EXPECT_EQ(titlesOfOutputs()["Plain"], 0);
}

TEST_F(NamesProgram, An_input_folder_that_cannot_be_named_is_not_replaced_by_the_stored_one) {
    putRecord(L"a.met", "Plain");
    expectRefused(
        L"-I batch.ini -F C:\\\x0416\x0443\x043A",
        "The folder \"C:\\<U+0416><U+0443><U+043A>\" has no name in the system's code page.");
}

// A place of MP, as the window stores it at its end.
class StoredPlace {
  public:
    explicit StoredPlace(const std::wstring& path) {
        const LSTATUS stored =
            RegSetKeyValueW(HKEY_CURRENT_USER, key, value, REG_SZ, path.c_str(),
                            static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t)));
        EXPECT_EQ(stored, ERROR_SUCCESS);
    }
    StoredPlace(const StoredPlace&) = delete;
    StoredPlace& operator=(const StoredPlace&) = delete;
    ~StoredPlace() { RegDeleteKeyValueW(HKEY_CURRENT_USER, key, value); }

  private:
    static constexpr const wchar_t* key = L"Software\\Corvane\\TARNWICK";
    static constexpr const wchar_t* value = L"MP Executable";
};

TEST_F(NamesProgram, A_stored_path_that_cannot_be_named_is_told_when_the_tools_are_under_way) {
    putRecord(L"a.met", "Plain");
    const StoredPlace stored(L"C:\\\x0416\x0443\x043A\\mp.exe");
    RunningProgram program(place.program(), L"-I batch.ini");
    const HWND message = program.window("Warning");
    EXPECT_EQ(messageOf(message), "The path \"C:\\<U+0416><U+0443><U+043A>\\mp.exe\" is left out: "
                                  "its name has no place in the system's code page.");
    EXPECT_TRUE(batchEnds()) << place.temporaryFiles(); // while nobody has answered yet
    EXPECT_EQ(titlesOfOutputs()["Plain"], 1);
    press(message, "OK");
    EXPECT_EQ(program.exitCode(), 0U);
}

} // namespace
} // namespace tarnwick::test
