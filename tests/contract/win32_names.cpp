// Names in the system's own, wide text: what the program takes of them, and how.

#include "contract/contract_fixture.hpp"
#include "platform/code_page.hpp"
#include "platform/win32/command_line.hpp"
#include "platform/win32/handle.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/win32/win32_files.hpp"
#include "platform/win32/win32_process.hpp"
#include "support/deceiving_names.hpp"

#include <windows.h>

#include <cstdlib>
#include <set>

namespace tarnwick {
namespace {

class Win32Names : public ContractTest {
  protected:
    void putWide(const std::wstring& name, std::string_view bytes = "") const {
        const auto path = toWide(platform->scratch()) + L'\\' + name;
        const Handle file(
            CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
        ASSERT_TRUE(file.isOpen()) << shownText(name);
        DWORD written = 0;
        WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    }
    void makeWideFolder(const std::wstring& name) const {
        const auto path = toWide(platform->scratch()) + L'\\' + name;
        ASSERT_NE(CreateDirectoryW(path.c_str(), nullptr), 0);
    }
    [[nodiscard]] std::wstring wideIn(const std::wstring& name) const {
        return toWide(platform->scratch()) + L'\\' + name;
    }
};

TEST(Win32Text, Every_character_of_both_code_pages_comes_back_as_itself) {
    for (const UINT codePage :
         {1252U, 437U, static_cast<unsigned>(GetACP()), static_cast<unsigned>(GetOEMCP())}) {
        std::set<std::wstring> seen;
        for (int byte = 0; byte < 256; ++byte) {
            const std::string text(1, static_cast<char>(byte));
            const auto wide = fromCodePage(text, codePage);
            ASSERT_TRUE(wide) << codePage << ' ' << byte;
            EXPECT_TRUE(seen.insert(*wide).second) << codePage << ' ' << byte;
            EXPECT_EQ(toCodePage(*wide, codePage), text) << codePage << ' ' << byte;
        }
    }
}

TEST(Win32Text, No_other_character_becomes_one_of_a_code_page) {
    for (const UINT codePage : {1252U, 437U}) {
        std::set<std::wstring> own;
        for (int byte = 0; byte < 256; ++byte) {
            own.insert(*fromCodePage(std::string(1, static_cast<char>(byte)), codePage));
        }
        for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
            const std::wstring wide(1, static_cast<wchar_t>(unit));
            EXPECT_EQ(toCodePage(wide, codePage).has_value(), own.contains(wide))
                << codePage << ' ' << unit;
        }
    }
}

TEST(Win32Text, What_has_no_place_is_shown_by_its_number) {
    EXPECT_EQ(shownText(L"\x0416.met"), "<U+0416>.met");
    EXPECT_EQ(shownText(L"caf\xE9 \xD83D\xDE00\xD83D"), "caf\xE9 <U+1F600><U+D83D>");
    EXPECT_EQ(shownText(L"a\x0007z\x0085"), "a<U+0007>z<U+0085>");
}

TEST(Win32Text, What_has_no_place_matches_a_wildcard_and_no_character) {
    EXPECT_EQ(matchingText(L"\x0416"
                           L"a.met"),
              "\x01"
              "a.met");
}

TEST_F(Win32Names, A_name_that_looks_like_another_goes_by_its_short_name_or_not_at_all) {
    put("a.met", "plain");
    for (const auto& name : deceivingNames) {
        putWide(name, "deceiving");
    }
    const Listing listing = files.listFiles(platform->scratch(), "*.met");
    EXPECT_EQ(listing.names.size() + listing.leftOut.count, deceivingNames.size() + 1);
    for (const auto& name : listing.names) {
        EXPECT_EQ(name.find_first_of("\"%*?<>|\\/:"), std::string::npos) << name;
        EXPECT_EQ(get(name), name == "a.met" ? "plain" : "deceiving") << name;
    }
    EXPECT_EQ(std::set<std::string>(listing.names.begin(), listing.names.end()).size(),
              listing.names.size());
}

TEST_F(Win32Names, The_short_name_names_the_same_file) {
    putWide(L"\x0416\x0443\x043A long name.met", "Beetle");
    const Listing listing = files.listFiles(platform->scratch(), "*name.met");
    ASSERT_EQ(listing.names.size(), 1U);
    EXPECT_EQ(get(listing.names.front()), "Beetle");
    EXPECT_EQ(files.firstNormalFile(in("*name.met")), listing.names.front());
    EXPECT_EQ(files.firstNormalFile(in(listing.names.front())), listing.names.front());
    EXPECT_EQ(files.listFiles(platform->scratch(), "*name.txt").names, Names{});
}

TEST_F(Win32Names, A_look_alike_is_not_the_file_that_was_asked_for) {
    putWide(L"\x0101.met", "macron");
    EXPECT_EQ(files.firstNormalFile(in("a.met")), "");
    EXPECT_EQ(raisedBy([&] { return files.openForReading(in("a.met")); }), 53);
}

TEST_F(Win32Names, A_folder_that_has_no_name_here_goes_by_its_short_name) {
    for (const auto& name : deceivingNames) {
        makeWideFolder(name);
        putWide(name + L"\\" + name, "inside");
    }
    const Listing listing = files.listFolders(platform->scratch());
    EXPECT_EQ(listing.names.size(), deceivingNames.size());
    for (const auto& name : listing.names) {
        EXPECT_TRUE(files.canListFolder(in(name))) << name;
        const Names inside = files.listFiles(in(name), "").names;
        ASSERT_EQ(inside.size(), 1U) << name;
        EXPECT_EQ(get(name + '\\' + inside.front()), "inside");
    }
}

TEST_F(Win32Names, The_current_folder_goes_by_its_short_name) {
    makeWideFolder(L"\x0416\x0443\x043A and more");
    const auto before = files.currentFolder();
    ASSERT_NE(SetCurrentDirectoryW(wideIn(L"\x0416\x0443\x043A and more").c_str()), 0);
    putBytes(files, "here.txt", "");
    const auto current = files.currentFolder();
    ASSERT_NE(SetCurrentDirectoryW(toWide(before).c_str()), 0);
    EXPECT_EQ(files.listFiles(current, "").names, Names{"here.txt"}) << current;
}

TEST_F(Win32Names, A_variable_that_names_such_a_folder_goes_by_its_short_name) {
    makeWideFolder(L"\x0416\x0443\x043A and more");
    SetEnvironmentVariableW(L"TARNWICK_TEST", wideIn(L"\x0416\x0443\x043A and more").c_str());
    EXPECT_TRUE(files.canListFolder(platform->process().environmentVariable("TARNWICK_TEST")));
    SetEnvironmentVariableW(L"TARNWICK_TEST", L"C:\\\x0416\x0443\x043A is not there");
    EXPECT_EQ(platform->process().environmentVariable("TARNWICK_TEST"),
              "C:\\<U+0416><U+0443><U+043A> is not there");
    SetEnvironmentVariableW(L"TARNWICK_TEST", nullptr);
}

TEST_F(Win32Names, A_setting_that_somebody_else_has_written_is_shown_by_numbers) {
    const auto application = platform->application();
    const std::wstring value = L"C:\\\xFF02.ini";
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER,
                              (LR"(Software\)" + toWide(application) + LR"(\S)").c_str(), L"name",
                              REG_SZ, value.c_str(),
                              static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))),
              ERROR_SUCCESS);
    EXPECT_EQ(platform->settings().read(application, "S", "name", ""), "C:\\<U+FF02>.ini");
}

TEST_F(Win32Names, A_command_line_names_files_by_their_short_names_and_nothing_by_look_alikes) {
    putWide(L"\x0416\x0443\x043A long name.ini", "stored");
    const auto text =
        commandLineText(L"-I \"" + wideIn(L"\x0416\x0443\x043A long name.ini") + L"\" -n");
    ASSERT_TRUE(text.starts_with("-I \"") && text.ends_with("\" -n")) << text;
    EXPECT_EQ(bytesOf(files, text.substr(4, text.size() - 8)), "stored");
    EXPECT_EQ(commandLineText(L"-I a.ini -e \xFF02*.met\xFF02 -n"),
              "-I a.ini -e <U+FF02>*.met<U+FF02> -n");
    EXPECT_EQ(commandLineText(L"-I caf\xE9.ini"), "-I caf\xE9.ini");
    for (const auto& name : deceivingNames) {
        EXPECT_EQ(commandLineText(L"-I " + name), "-I " + shownText(name));
        putWide(name, "stored");
        const auto there = commandLineText(L"-I \"" + wideIn(name) + L"\"");
        EXPECT_EQ(bytesOf(files, there.substr(4, there.size() - 5)), "stored") << there;
    }
}

TEST_F(Win32Names, A_path_of_the_program_is_opened_as_the_very_same_characters) {
    put("caf\xE9 \x80.met", "euro");
    const auto attributes = GetFileAttributesW(wideIn(L"caf\xE9 \x20AC.met").c_str());
    EXPECT_NE(attributes, INVALID_FILE_ATTRIBUTES);
}

TEST(Win32CodePage, Characters_of_two_bytes_begin_where_the_system_has_them_begin) {
    for (const unsigned number : {932U, 936U, 949U, 950U, 1252U}) {
        const CodePage page(number);
        for (unsigned code = 1; code < 256; ++code) {
            const std::string text{static_cast<char>(code), 'A'};
            const bool isLead = IsDBCSLeadByteEx(number, static_cast<BYTE>(code)) != FALSE;
            EXPECT_EQ(page.lengthOfFirst(text), isLead ? 2U : 1U) << number << ' ' << code;
        }
    }
}

TEST(Win32CodePage, Its_capitals_are_those_of_the_system) {
    ASSERT_EQ(GetACP(), CodePage::western); // what Wine is told
    for (unsigned code = 0; code < 256; ++code) {
        const auto character = static_cast<char>(code);
        EXPECT_EQ(systemCodePage().upperCase(character),
                  CodePage(CodePage::western).upperCase(character))
            << code;
    }
}

} // namespace
} // namespace tarnwick
