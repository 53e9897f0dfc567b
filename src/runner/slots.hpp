#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace tarnwick {

// Threads that do one piece of work each at a time, and sleep while there is none.
class Slots {
  public:
    // `work` is called with the number of its slot, from 0 on, and with what was given. It does not
    // raise.
    using Work = std::function<void(std::size_t slot, std::uint32_t piece)>;

    Slots(std::size_t count, Work work);
    Slots(const Slots&) = delete;
    Slots& operator=(const Slots&) = delete;
    Slots(Slots&&) = delete;
    Slots& operator=(Slots&&) = delete;
    // Drops what is not begun, and waits for what is.
    ~Slots();

    void give(std::uint32_t piece);

    // Drops what is not begun; how many pieces that were.
    std::size_t drop();

  private:
    void serve(std::size_t slot);

    Work work_;
    std::mutex mutex_;
    std::condition_variable waiting_;
    std::deque<std::uint32_t> pieces_;
    bool closed_ = false;
    std::vector<std::jthread> threads_;
};

} // namespace tarnwick
