#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace tarnwick {

// Gathers many small writes into few large ones. `writeSome(bytes)` writes the front of `bytes`,
// at least one byte, and returns how many; it raises where it cannot. What is not yet written is
// kept, so that the file always holds a prefix of what was appended.
class WriteBuffer {
  public:
    template <typename WriteSome>
    void append(std::string_view bytes, WriteSome&& writeSome) {
        while (!bytes.empty()) {
            if (waiting_.size() == capacity) {
                drain(writeSome);
            }
            if (waiting_.empty() && bytes.size() >= capacity) { // nothing to gather
                bytes.remove_prefix(writeSome(bytes));
                continue;
            }
            waiting_.reserve(capacity);
            const auto count = std::min(bytes.size(), capacity - waiting_.size());
            waiting_.append(bytes.substr(0, count));
            bytes.remove_prefix(count);
        }
    }

    template <typename WriteSome>
    void drain(WriteSome&& writeSome) {
        while (!waiting_.empty()) {
            waiting_.erase(0, writeSome(std::string_view(waiting_)));
        }
    }

  private:
    static constexpr std::size_t capacity = 64UZ * 1024;
    std::string waiting_;
};

} // namespace tarnwick
