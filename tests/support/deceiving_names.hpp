#pragma once

#include <string>
#include <vector>

namespace tarnwick {

// Names of records that look like another one, or like something else than a name, in the code
// page, as the system's own tables have it.
inline const std::vector<std::wstring> deceivingNames{
    L"\xFF02&md pwned&\xFF02.met",   // a quotation mark
    L"x\xFF3C..\xFF3C..\xFF3Cw.met", // a backslash
    L"p\xFF05OS\xFF05.met",          // a percent sign
    L"\xFF0A.met",                   // a star
    L"\xFF1E.met",                   // a greater-than sign
    L"\x0101.met",                   // a with a macron
    L"\x0416\x0443\x043A.met",       // Cyrillic
    L"\xD83D\xDE00.met",             // beyond the first plane
    L"e\x0301.met",                  // an accent of its own
    L"\x2215\x2044\x2216.met",       // slashes of mathematics
    L"\x0085.met",                   // a control character, whose byte is another one
};

} // namespace tarnwick
