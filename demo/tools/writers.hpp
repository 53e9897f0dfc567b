#pragma once

#include "record.hpp"

#include <string>

// The outputs of a record other than the pages: each function gives the whole content of a file,
// its lines ended by CR LF.
namespace demo {

// As recordText; `cleanUp` drops the blanks at the ends of lines and leaves one of several empty
// lines.
[[nodiscard]] std::string textOutput(const Record& record, bool cleanUp);

// XML, and SGML in the same tags. The XML says its code page (windows-1252).
[[nodiscard]] std::string xmlOutput(const Record& record);
[[nodiscard]] std::string sgmlOutput(const Record& record);

// "Field: value" lines in groups; the lines of a longer text follow their field, each behind one
// blank, so that no text can be taken for a field or a group.
[[nodiscard]] std::string difOutput(const Record& record);

// Text as it may stand in a mark-up file in code page 1252, between tags or in double quotation
// marks. What no such file may hold becomes "?".
[[nodiscard]] std::string escaped(std::string_view text);

} // namespace demo
