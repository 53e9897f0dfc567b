#pragma once

#include "platform/files.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// What ends a line of a text file.
enum class LineEnds {
    CarriageReturn, // CR or CR LF; a bare LF is a character of the line like any other
    Any,            // those and a bare LF
};

// Reads a text file line by line, byte-transparently. Memory: one line and one block.
class LineReader {
  public:
    // Refers to `file`, which must outlive it. What a line has beyond `longest` bytes is skipped.
    LineReader(InputFile& file, LineEnds lineEnds, std::size_t longest = std::string::npos);

    // The next line without its end; nothing at the end of the file. What stands behind the last
    // line end is a line, unless it is empty. The view holds until the next call.
    // Raises what InputFile::read raises.
    [[nodiscard]] std::optional<std::string_view> next();

  private:
    bool fill();
    [[nodiscard]] bool endsLine(char character) const noexcept;

    InputFile& file_;
    LineEnds lineEnds_;
    std::size_t longest_;
    std::vector<char> block_;
    std::string_view unread_; // of block_
    std::string line_;
    bool skipLineFeed_ = false; // the last line ended in CR: an LF right behind it belongs to it
};

} // namespace tarnwick
