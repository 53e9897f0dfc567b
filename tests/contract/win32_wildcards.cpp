// The matcher against the system's own listing: many generated names in one folder, and generated
// patterns over them.

#include "contract/contract_fixture.hpp"
#include "platform/wildcard.hpp"
#include "platform/win32/handle.hpp"
#include "platform/win32/system_text.hpp"

#include <windows.h>

#include <ostream>
#include <random>
#include <set>

namespace tarnwick {
namespace {

// Wine's listing takes "?" for exactly one character, a dot as well, and none right behind a "*";
// it knows no dot at the end of a pattern and takes two of them for one; and behind the last "*" it
// tries the first place alone. There, only what means the same is held against it.
bool isWine() {
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    return GetProcAddress(system, "wine_get_version") != nullptr;
}

// Names and patterns, always the same ones. No name has a short name beside its own.
class Generator {
  public:
    std::string name(bool withDot) {
        std::string made = text("ab", 5);
        return withDot ? made + "." + text("ab", 3) : made;
    }
    // Of letters and the characters of `others`.
    std::string pattern(std::string_view others) { return text("ab" + std::string(others), 6); }

  private:
    std::string text(std::string_view characters, std::size_t longest) {
        std::string made(1 + random_() % longest, ' ');
        for (char& character : made) {
            character = characters[random_() % characters.size()];
        }
        return made;
    }
    std::mt19937 random_{20260302}; // NOLINT(cert-msc32-c,cert-msc51-cpp): always the same
};

// Whether the pattern means the same to Wine: every "?" has a letter behind it and no "*" before
// it, and what stands behind the last "*" can begin in one place only, as a dot does.
bool isPlain(std::string_view pattern) {
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '?' &&
            (i + 1 == pattern.size() || pattern[i + 1] < 'a' || (i > 0 && pattern[i - 1] == '*'))) {
            return false;
        }
    }
    const auto star = pattern.rfind('*');
    const auto end = star == std::string_view::npos ? "" : pattern.substr(star + 1);
    return !pattern.ends_with('.') && !pattern.contains("..") &&
           (end.empty() || end.front() == '.');
}

std::set<std::string> systemFinds(const std::string& folder, const std::string& pattern) {
    std::set<std::string> found;
    WIN32_FIND_DATAW entry{};
    const FindHandle search(FindFirstFileW(toWide(folder + '\\' + pattern).c_str(), &entry));
    if (!search.isOpen()) {
        return found;
    }
    do {
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            found.insert(*toSystemText(entry.cFileName));
        }
    } while (FindNextFileW(search.get(), &entry) != 0);
    return found;
}

struct Class {
    bool namesWithDots = false;
    std::string_view others; // in patterns, beside letters
};

std::ostream& operator<<(std::ostream& out, const Class& which) {
    return out << (which.namesWithDots ? "names with dots" : "names without dots")
               << ", patterns of " << which.others;
}

class EveryPattern : public ContractTest, public testing::WithParamInterface<Class> {};

TEST_P(EveryPattern, Finds_what_the_systems_own_listing_finds) {
    constexpr std::size_t names = 60;
    constexpr std::size_t patterns = 850;
    Generator generator;
    std::set<std::string> made;
    while (made.size() < names) {
        const bool withDot = GetParam().namesWithDots && made.size() % 3 != 0;
        if (const auto name = generator.name(withDot); made.insert(name).second) {
            put(name);
        }
    }
    for (std::size_t tried = 0; tried < patterns;) {
        const auto pattern = generator.pattern(GetParam().others);
        // Without a wildcard it is a path, which "." and ".." lead elsewhere.
        if (pattern.find_first_of("*?") == std::string::npos || (isWine() && !isPlain(pattern))) {
            continue;
        }
        ++tried;
        const auto expected = systemFinds(platform->scratch(), pattern);
        for (const auto& name : made) {
            ASSERT_EQ(matchesWildcard(name, pattern), expected.contains(name))
                << name << " by " << pattern;
        }
    }
}

// 102,000 pairs.
INSTANTIATE_TEST_SUITE_P(Win32Wildcards, EveryPattern,
                         testing::Values(Class{.namesWithDots = true, .others = ".**"},
                                         Class{.namesWithDots = false, .others = "*?"}),
                         [](const auto& chosen) {
                             return std::string(chosen.param.namesWithDots ? "with_dots_and_stars"
                                                                           : "with_question_marks");
                         });

} // namespace
} // namespace tarnwick
