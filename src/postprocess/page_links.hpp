#pragma once

#include "platform/files.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// How every link begins; in lower case it is none.
inline constexpr std::string_view linkMarker = "HREF=\"";

// What is to be changed in one page. Paths are full ones, as the page spells them.
struct PageRule {
    struct Link {
        std::string from; // whole, from linkMarker to its closing quotation mark
        std::string to;   // likewise
    };
    std::vector<Link> links; // in the order in which each line is searched for them
    std::string ownPath;     // of the page itself
    std::string ownName;     // takes its place in base lines
};

// Changes one line (without its end): of each link in its turn the first occurrence is replaced, in
// the line as the earlier ones have left it; then, in a line that begins with "<base href" (in any
// case, behind any blanks), the last occurrence of the page's path.
void rewriteLine(std::string& line, const PageRule& rule);

// Copies the page and rewrites its lines. A line ends at CR, LF or CR LF; line ends, and all bytes
// that the rule does not change, are copied as they stand. Memory: a block or the longest line,
// whatever the length of the page. Raises what `page` and `copy` raise; does not close `copy`.
void rewriteLinks(InputFile& page, OutputFile& copy, const PageRule& rule);

} // namespace tarnwick
