// What the system reads in Tarnwick.exe without running it: the version, the icon, the manifest,
// the message of the event log.

#include "program/installation.hpp"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ProgramResources : public testing::Test {
  protected:
    ProgramResources()
        : module(LoadLibraryExW(place.program().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE)) {}

    // The bytes of a resource; they belong to the module.
    [[nodiscard]] std::string_view resource(LPCWSTR name, LPCWSTR type) const {
        const HRSRC found = FindResourceW(module.get(), name, type);
        if (found == nullptr) {
            return {};
        }
        return {static_cast<const char*>(LockResource(LoadResource(module.get(), found))),
                SizeofResource(module.get(), found)};
    }

    Installation place;
    struct Free {
        using pointer = HMODULE;
        void operator()(HMODULE loaded) const { FreeLibrary(loaded); }
    };
    std::unique_ptr<HMODULE, Free> module;
};

TEST_F(ProgramResources, The_system_loads_no_library_that_it_would_look_for_beside_the_program) {
    std::string program = place.read("Tarnwick.exe");
    ASSERT_FALSE(program.empty());
    for (char& character : program) {
        if (character >= 'A' && character <= 'Z') {
            character = static_cast<char>(character + ('a' - 'A'));
        }
    }
    // As names in the list of imports, which are ASCII.
    EXPECT_THAT(program, HasSubstr("kernel32.dll"));
    for (const char* const library : {"uxtheme.dll", "oleacc.dll"}) {
        EXPECT_FALSE(program.contains(library)) << library;
    }
}

class ProgramVersion : public testing::Test {
  protected:
    ProgramVersion() {
        const std::string program = place.program().string();
        DWORD unused = 0;
        info.resize(GetFileVersionInfoSizeA(program.c_str(), &unused));
        EXPECT_TRUE(GetFileVersionInfoA(program.c_str(), 0, static_cast<DWORD>(info.size()),
                                        info.data()) != FALSE);
    }

    [[nodiscard]] std::string text(const std::string& name) const {
        void* value = nullptr;
        UINT length = 0;
        return VerQueryValueA(info.data(), ("\\StringFileInfo\\040904E4\\" + name).c_str(), &value,
                              &length) != FALSE
                   ? static_cast<const char*>(value)
                   : "no " + name;
    }

    Installation place;
    std::vector<char> info;
};

TEST_F(ProgramVersion, The_program_tells_its_version_product_and_maker) {
    void* value = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueA(info.data(), "\\", &value, &length) != FALSE);
    const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(value);
    EXPECT_EQ(fixed->dwFileVersionMS, 0x00020000U);
    EXPECT_EQ(fixed->dwFileVersionLS, 0x00000007U);
    EXPECT_EQ(fixed->dwProductVersionMS, 0x00020000U);
    EXPECT_EQ(fixed->dwProductVersionLS, 0x00000007U);
    EXPECT_EQ(text("ProductName"), "Tarnwick");
    EXPECT_EQ(text("CompanyName"), "Corvane");
    EXPECT_EQ(text("FileVersion"), "2.0.0.7");
    EXPECT_EQ(text("ProductVersion"), "2.0.0.7");
    EXPECT_EQ(text("OriginalFilename"), "Tarnwick.exe");
}

TEST_F(ProgramResources, The_icon_has_every_size_from_16_to_256_pixels) {
    // A head of three words, the last of them the number of pictures, and for each picture an entry
    // of 14 bytes that begins with its width; a width of 256 is written as 0.
    const std::string_view group = resource(L"logo", RT_GROUP_ICON);
    ASSERT_GE(group.size(), 6U);
    std::uint16_t pictures = 0;
    std::memcpy(&pictures, group.data() + 4, sizeof pictures);
    ASSERT_EQ(group.size(), 6U + 14U * pictures);
    std::vector<int> widths;
    for (std::size_t at = 6; at < group.size(); at += 14) {
        const auto width = static_cast<unsigned char>(group[at]);
        widths.push_back(width == 0 ? 256 : width);
    }
    EXPECT_THAT(widths, ElementsAre(256, 128, 96, 64, 48, 32, 24, 16));
}

TEST_F(ProgramResources, The_message_of_the_event_log_is_the_text_that_it_is_given) {
    const wchar_t* const given = L"The INI file \"100%.ini\" does not exist.";
    auto* arguments = reinterpret_cast<va_list*>(const_cast<wchar_t**>(&given)); // NOLINT: an array
    std::vector<wchar_t> shown(200);
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_ARGUMENT_ARRAY, module.get(), 1,
                       0, shown.data(), static_cast<DWORD>(shown.size()), arguments);
    EXPECT_THAT(std::wstring(shown.data(), length), testing::StartsWith(given));
}

TEST_F(ProgramResources, The_manifest_asks_for_new_controls_sharp_pixels_and_long_paths) {
    const std::string manifest(resource(MAKEINTRESOURCEW(1), RT_MANIFEST));
    EXPECT_THAT(manifest,
                HasSubstr("name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\""));
    EXPECT_THAT(manifest, HasSubstr(">PerMonitorV2, PerMonitor</dpiAwareness>"));
    EXPECT_THAT(manifest, HasSubstr(">true</longPathAware>"));
    EXPECT_THAT(manifest,
                HasSubstr("<requestedExecutionLevel level=\"asInvoker\" uiAccess=\"false\"/>"));
}

} // namespace
} // namespace tarnwick::test
