#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

// The one way between the program's text, which is 8-bit in the system's code page, and the
// system's own, which is wide. The system's 8-bit functions are not used: they turn a character
// that the code page does not have into one that looks like it, and a harmless name into a
// quotation mark, a separator or the name of another file.

// For the system to show or to keep. A byte that is no character becomes whatever the system puts
// in its place.
[[nodiscard]] std::wstring toWide(std::string_view text);

// For the system to open: raises 52 where a byte is no character, for what the system puts in its
// place would name another file.
[[nodiscard]] std::wstring toWidePath(std::string_view path);

// The path for a system call: raises 52 where no file can have that name. A NUL would cut it short,
// other bad characters would mean something else than a name.
[[nodiscard]] std::string possible(std::string_view path);

// The same text in the code page, or nothing where one of its characters has no place of its own
// there.
[[nodiscard]] std::optional<std::string> toCodePage(std::wstring_view wide, UINT codePage);
[[nodiscard]] std::optional<std::string> toSystemText(std::wstring_view wide);

// Text of that code page as wide text, or nothing where a byte is no character.
[[nodiscard]] std::optional<std::wstring> fromCodePage(std::string_view text, UINT codePage);

// The name of a file or folder: as toSystemText, and nothing where a character is a control
// character.
[[nodiscard]] std::optional<std::string> toFileName(std::wstring_view wide);

// The text for showing: what has no place in the code page becomes its number, as in "<U+0416>".
// No name of a file holds a "<", so that it is never taken for one.
[[nodiscard]] std::string shownText(std::wstring_view wide);

// A full path, of a file that need not be there: as it is, or else with as many short names as it
// takes. Nothing where the volume keeps none.
[[nodiscard]] std::optional<std::string> toSystemPath(const std::wstring& path);

// The same for a path that cannot be refused: as shownText in the end, which names nothing.
[[nodiscard]] std::string pathText(const std::wstring& path);

// The text for a pattern to be held against: a character without a place is one that no pattern
// asks for by name.
[[nodiscard]] std::string matchingText(std::wstring_view wide);

} // namespace tarnwick
