#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnwick {

// Of what a tool says, so many bytes from its beginning and so many from its end are kept.
inline constexpr std::size_t keptOutput = 32UZ * 1024;

// Gathers what a tool says, however long it goes on, in little memory.
class KeptOutput {
  public:
    void add(std::string_view bytes);

    // All of it, up to twice keptOutput. Of more than that the first and the last keptOutput bytes,
    // and between them "\n[bytes left out: 1234]\n".
    [[nodiscard]] std::string text() const;

  private:
    std::string first_;
    std::string last_; // what follows; its front is cut off as it grows
    std::size_t cutOff_ = 0;
};

} // namespace tarnwick
