#pragma once

#include <cstdint>
#include <string_view>

namespace tarnwick {

enum class Stream : std::uint8_t { Output, Error };

// The standard streams of this process.
class Terminal {
  public:
    virtual ~Terminal() = default;

    // Whether somebody sits before it, who sees a line that is drawn over.
    [[nodiscard]] virtual bool isTerminal(Stream stream) const = 0;

    // In characters, at this moment; 80 where it is not known.
    [[nodiscard]] virtual int width() const = 0;

    // Writes the text, of the program's own code page, with "\n" at line ends, at once. What cannot
    // be written is lost: false from then on.
    virtual bool write(Stream stream, std::string_view text) = 0;
};

} // namespace tarnwick
