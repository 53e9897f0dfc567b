#pragma once

#include "definition/batch_definition.hpp"
#include "platform/code_page.hpp"
#include "platform/left_out.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// Whether it can be a file's name on Windows: no quotation mark, no control character and none of
// <>|*?:/\ . Windows has no such names; whatever a file system or a conversion brings, none of them
// becomes a command or a path.
[[nodiscard]] bool isPlainName(std::string_view record,
                               const CodePage& codePage = systemCodePage()) noexcept;

// A record's name comes from a folder that others may write to, and goes into command lines between
// quotation marks. Whether it stays a name there: a plain name without a "%", which Windows does
// allow: in a batch it begins a variable, even between quotation marks, and "%~z" ends the whole
// batch; and without a "^", which "call" doubles: the tool would get the name of another record.
[[nodiscard]] bool staysName(std::string_view record,
                             const CodePage& codePage = systemCodePage()) noexcept;

// Whether the system opens something else under that name: it cuts off a dot or blank at the end,
// which may leave another record's name, and "CON.met" is the console, in which a tool waits for
// ever. Other systems and network drives let such files be made.
[[nodiscard]] bool leadsElsewhere(std::string_view record,
                                  const CodePage& codePage = systemCodePage()) noexcept;

// Takes the records out whose names do not stay names or lead elsewhere, and tells which.
[[nodiscard]] LeftOut refuseUnsafeNames(std::vector<std::string>& records);

// What no command is written for.
struct Refused {
    LeftOut records;
    LeftOut products; // by their paths, with "*" for the record

    bool operator==(const Refused&) const = default;
};

// As refuseUnsafeNames, also of names that the tools would take for options where they get them
// without a folder; and takes the marks from the rows whose products would have a "%" or a "^" in
// their paths. `definition` has resolved paths. Where it is CNS's output that would have one, no
// record is left: neither tool could do anything.
[[nodiscard]] Refused refuseUnsafe(BatchDefinition& definition, std::vector<std::string>& records);

} // namespace tarnwick
